#include <cstring>

#include "commands.h"
#include "frame/files.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "tests/support/failing_call.h"
#include "tests/support/help_call.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"

namespace {

constexpr const char *SAVE_TITLE = "Save the Report to a Disk File";
constexpr int NEVER = 0; // of a call that is counted and not failed

// Jump, Print and Save.
class PreviewCommands : public PreviewRun {
protected:
    int Jump(const std::string &text, int button = IDOK) {
        boxes.AnswerDialog("Page Jump", JUMP_PAGE, text, button);
        Command(COMMAND_JUMP);
        return Page();
    }
    void Save(const std::string &path) {
        boxes.AnswerDialog(SAVE_TITLE, FILE_NAME, path, path.empty() ? IDCANCEL : IDOK);
        Command(COMMAND_SAVE);
    }
    TemporaryFolder folder;
};

} // namespace

// ---- jump --------------------------------------------------------------------------------------

TEST_F(PreviewCommands, JumpAboveTheLastFinishedPageGoesToItAndBelow1ToPage1) {
    Finish(20);
    EXPECT_EQ(Jump("3"), 3);
    EXPECT_EQ(Jump("99"), 4);
    EXPECT_EQ(Jump("0"), 1);
    EXPECT_EQ(Jump("2"), 2);
    EXPECT_EQ(Jump("-5"), 1);
    EXPECT_EQ(Jump("99999999999999999999"), 4);
    EXPECT_EQ(Jump("-99999999999999999999"), 1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewCommands, JumpWithTheTextEmptyGivesPage1) {
    Finish(20);
    EXPECT_EQ(Jump("2"), 2);
    EXPECT_EQ(Jump(""), 1);
}

TEST_F(PreviewCommands, JumpStartsAtThePageOnViewWithTheFocusOnItsNumber) {
    Finish(20);
    ASSERT_EQ(Jump("3"), 3);
    std::string text;
    int focus = 0;
    boxes.OnDialog("Page Jump", [&](DialogDriver dialog) {
        text = dialog.Text(JUMP_PAGE);
        focus = dialog.Focus();
        dialog.Press(IDOK);
    });
    Command(COMMAND_LINE_DOWN);
    const int origin = session->view.OriginY;
    const FailingCall reads("GetMetaFileA", GetMetaFileA, nullptr, 1, NEVER);
    Command(COMMAND_JUMP);
    EXPECT_EQ(text, "3");
    EXPECT_EQ(focus, JUMP_PAGE);
    EXPECT_EQ(session->view.OriginY, origin); // the current page: nothing happens
    EXPECT_EQ(reads.Seen(), 0);
}

TEST_F(PreviewCommands, CancelledJumpStays) {
    Finish(20);
    Command(COMMAND_LINE_DOWN);
    const int origin = session->view.OriginY;
    EXPECT_EQ(Jump("3", IDCANCEL), 1);
    EXPECT_EQ(session->view.OriginY, origin);
}

TEST_F(PreviewCommands, JumpShowsThePageFromItsTop) {
    Finish(20);
    Command(COMMAND_LINE_DOWN);
    EXPECT_EQ(Jump("2"), 2);
    EXPECT_EQ(session->view.OriginY, 0);
    EXPECT_EQ(ScrollPosition(SB_VERT), 25);
}

TEST_F(PreviewCommands, JumpDuringTheRunReachesTheFinishedPagesAndHoldsTheRunUp) {
    ASSERT_EQ(Feed(16), 0); // three pages finished, the fourth begun
    int records = 0;
    boxes.OnDialog("Page Jump", [&](DialogDriver dialog) {
        records = session->report.RecordCount;
        dialog.SetText(JUMP_PAGE, "4");
        dialog.Press(IDOK);
    });
    PostCommand(COMMAND_JUMP);
    ASSERT_EQ(Feed(1), 0);
    EXPECT_EQ(records, 16);
    EXPECT_EQ(Page(), 3);
}

TEST_F(PreviewCommands, HelpOfTheJumpIs3037AndTheDialogStays) {
    Finish(20);
    const HelpCall help;
    bool stays = false;
    boxes.OnDialog("Page Jump", [&](DialogDriver dialog) {
        dialog.Send(DIALOG_HELP);
        stays = !IsWindowEnabled(Window()); // its end would enable it
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_JUMP);
    EXPECT_TRUE(stays);
    EXPECT_EQ(help.window, session->ParentWindow);
    EXPECT_EQ(help.command, 1u);
    EXPECT_EQ(help.number, 3037u);
}

// ---- print -------------------------------------------------------------------------------------

TEST_F(PreviewCommands, PrintAsksForItsPagesAndStartsFromThePageOnView) {
    Finish(20);
    ASSERT_EQ(Jump("2"), 2);
    std::string first;
    std::string last;
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        first = dialog.Text(PRINT_FIRST_PAGE);
        last = dialog.Text(PRINT_LAST_PAGE);
        dialog.Press(IDCANCEL);
    });
    const FailingCall jobs("StartDocA", StartDocA, 0, 1, NEVER);
    Command(COMMAND_PRINT);
    EXPECT_EQ(first, "2");
    EXPECT_EQ(last, "2");
    EXPECT_EQ(jobs.Seen(), 0);
}

// ---- save --------------------------------------------------------------------------------------

TEST_F(PreviewCommands, SavedReportIsTheWholeReportFile) {
    Finish(12);
    Save(folder.Path("SAVED.FRC"));
    const std::string saved = ReadWholeFile(folder.Path("SAVED.FRC"));
    EXPECT_EQ(saved, ReadWholeFile(session->pages.ReportPath));
    EXPECT_EQ(+HeaderOf(saved).PageCount, 3);
    EXPECT_EQ(PageWords(saved, 2).size(), 4u); // two records, each with its label
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewCommands, SavedReportWithoutAnEndingGetsIt) {
    Finish(2);
    Save(folder.Path("PLAIN"));
    EXPECT_EQ(ReadWholeFile(folder.Path("PLAIN.FRC")), ReadWholeFile(session->pages.ReportPath));
}

TEST_F(PreviewCommands, SavedReportOfTheOtherFormatGetsItsEnding) {
    Finish(2);
    tessarine::frc_format = 0;
    Save(folder.Path("PLAIN"));
    tessarine::frc_format = 1;
    EXPECT_EQ(ReadWholeFile(folder.Path("PLAIN.FR")), ReadWholeFile(session->pages.ReportPath));
}

TEST_F(PreviewCommands, SaveAsksBeforeItReplacesTheNameWithItsEnding) {
    Finish(2);
    for (const char *name : {"PLAIN", "a.report"}) { // whose ending is too long for one
        const std::string whole = folder.Path(name) + ".FRC";
        WriteWholeFile(whole, "earlier");
        boxes.Clear();
        boxes.Answer(IDYES);
        Save(folder.Path(name));
        EXPECT_EQ(boxes.Texts(),
                  std::vector<std::string>{whole + " already exists.\nDo you want to replace it?"});
        EXPECT_EQ(ReadWholeFile(whole), ReadWholeFile(session->pages.ReportPath));
    }
}

TEST_F(PreviewCommands, SaveThatMayNotReplaceAsksForAnotherName) {
    Finish(2);
    const std::string whole = folder.Path("PLAIN.FRC");
    WriteWholeFile(whole, "earlier");
    int dialogs = 0;
    boxes.OnDialog(SAVE_TITLE, [&](DialogDriver dialog) {
        dialog.SetText(FILE_NAME, folder.Path("PLAIN"));
        dialog.Press(++dialogs == 1 ? IDOK : IDCANCEL);
    });
    boxes.Answer(IDNO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(ReadWholeFile(whole), "earlier");
}

TEST_F(PreviewCommands, SaveOfAReportBeyondTwoGigabytesCopiesIt) {
    Finish(2);
    {
        const tessarine::OwnedFile report(CreateFileA(session->pages.ReportPath, GENERIC_WRITE, 0,
                                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                                      nullptr));
        ASSERT_TRUE(tessarine::SeekTo(report.Get(), 3LL << 30));
        ASSERT_TRUE(SetEndOfFile(report.Get()));
    }
    const std::string path = folder.Path("LONG.FRC");
    const FailingCall writes("WriteFile", WriteFile, FALSE, 3); // the third block is enough
    Save(path);
    EXPECT_EQ(writes.Seen(), 3);
    EXPECT_EQ(boxes.LastText(), "Error writing the output file(CopyFileData a)");
    EXPECT_FALSE(tessarine::FileStands(path.c_str()));
}

TEST_F(PreviewCommands, SaveOntoALinkToThePreviewsOwnFileWritesNothing) {
    Finish(2);
    const std::string link = folder.Path("LINK.FRC");
    ASSERT_TRUE(CreateHardLinkA(link.c_str(), session->pages.ReportPath, nullptr));
    boxes.Answer(IDYES); // replace the file
    const FailingCall writes("WriteFile", WriteFile, FALSE, 1, NEVER);
    Save(link);
    EXPECT_EQ(writes.Seen(), 0);
}

namespace {
HCURSOR cursor_of_save;
BOOL WINAPI NoteCursor(HANDLE, LPCVOID, DWORD size, LPDWORD written, LPOVERLAPPED) {
    cursor_of_save = GetCursor();
    *written = size;
    return TRUE;
}
} // namespace

TEST_F(PreviewCommands, SaveShowsTheWaitCursorUntilItIsDone) {
    Finish(2);
    const HCURSOR arrow = LoadCursorA(nullptr, IDC_ARROW);
    SetCursor(arrow);
    cursor_of_save = nullptr;
    {
        const ReplacedCall writes("WriteFile", NoteCursor);
        Save(folder.Path("SAVED.FRC"));
    }
    EXPECT_EQ(cursor_of_save, LoadCursorA(nullptr, IDC_WAIT));
    EXPECT_NE(GetCursor(), cursor_of_save);
}

TEST_F(PreviewCommands, SaveOverALongerFileKeepsItsTail) {
    Finish(2);
    const std::string path = folder.Path("LONG.FRC");
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    WriteWholeFile(path, std::string(report.size() + 100, 'x'));
    boxes.Answer(IDYES); // replace the file
    Save(path);
    EXPECT_EQ(ReadWholeFile(path), report + std::string(100, 'x'));
}

TEST_F(PreviewCommands, SaveOntoThePreviewsOwnFileWritesNothing) {
    Finish(2);
    boxes.Answer(IDYES); // replace the file
    const FailingCall writes("WriteFile", WriteFile, FALSE, 1, NEVER);
    Save(session->pages.ReportPath);
    EXPECT_EQ(writes.Seen(), 0);
}

TEST_F(PreviewCommands, CancelledSaveMakesNoFile) {
    Finish(2);
    const FailingCall opened("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE, 1, NEVER);
    Save("");
    EXPECT_EQ(opened.Seen(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewCommands, SaveDuringTheRunDoesNothing) {
    ASSERT_EQ(Feed(7), 0);
    bool asked = false;
    boxes.OnDialog(SAVE_TITLE, [&](DialogDriver dialog) {
        asked = true;
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_SAVE);
    EXPECT_FALSE(asked);
}

TEST_F(PreviewCommands, SaveThatFailsIsToldAndLeavesNoHalfFile) {
    Finish(12);
    const std::string path = folder.Path("SAVED.FRC");
    {
        const FailingCall failing("WriteFile", WriteFile, FALSE);
        Save(path);
        ASSERT_GT(failing.Seen(), 0);
    }
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    EXPECT_EQ(boxes.LastText(), "Error writing the output file(CopyFileData a)");
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
    ASSERT_TRUE(Open());
    Save(path);
    EXPECT_EQ(ReadWholeFile(path), ReadWholeFile(session->pages.ReportPath));
}

TEST_F(PreviewCommands, SaveOfAReportFileThatIsGoneIsTold) {
    Finish(2);
    ASSERT_TRUE(DeleteFileA(session->pages.ReportPath));
    Save(folder.Path("SAVED.FRC"));
    EXPECT_EQ(boxes.LastText(), "Error opening the input file(CopyFileData)");
    EXPECT_TRUE(Open());
}
