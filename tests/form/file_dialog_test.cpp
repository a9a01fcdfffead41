#include "form/file_dialog.h"

#include <gtest/gtest.h>

#include <cstring>

#include "form/form_writer.h"
#include "frame/host_data.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_files.h"
#include "tests/support/host_window.h"

using namespace tessarine;

namespace {

constexpr const char *FILTER = "Tessarine+ Files(*.FP)|*.FP|";

struct SeenDialog {
    HWND owner;
    DWORD flags;
    DWORD room;
    std::string filter; // with its inner ends
    std::string title;
    std::string folder;
};
std::vector<SeenDialog> seen;

// The true dialog, with a double click that is still under way when it ends.
HWND window_behind;
decltype(&GetSaveFileNameA) real_dialog;
BOOL WINAPI LeaveADoubleClick(OPENFILENAMEA *dialog) {
    const BOOL accepted = real_dialog(dialog);
    PostMessageA(window_behind, WM_LBUTTONDBLCLK, 0, 0);
    return accepted;
}

BOOL WINAPI NoteDialog(OPENFILENAMEA *dialog) {
    const char *end = dialog->lpstrFilter;
    while (*end) end += std::strlen(end) + 1;
    seen.push_back({dialog->hwndOwner, dialog->Flags, dialog->nMaxFile,
                    std::string(dialog->lpstrFilter, end), dialog->lpstrTitle,
                    dialog->lpstrInitialDir ? dialog->lpstrInitialDir : "(none)"});
    return FALSE;
}

class FileDialog : public FormFiles {
protected:
    FileDialog() { session->ParentWindow = host.Get(); }

    // The next dialog of this title gets a name, or is cancelled.
    void Answer(const char *title, const std::string &name) {
        boxes.OnDialog(title, [this, name](DialogDriver dialog) {
            ++dialogs;
            offered = dialog.Text(FILE_NAME);
            if (!name.empty()) dialog.SetText(FILE_NAME, name);
            dialog.Press(name.empty() ? IDCANCEL : IDOK);
        });
    }

    HostWindow host;
    int dialogs = 0;
    std::string offered;
    FullForm form;
};

} // namespace

TEST_F(FileDialog, QuitUnderItIsLeftToTheHostsOwnLoop) {
    boxes.OnDialog("Save", [](HWND) { PostQuitMessage(7); });
    char name[260] = "";
    AskFileName(session, name, FILTER, "Save", true);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(FileDialog, ChosenNameComesBack) {
    char name[260] = "";
    const std::string path = folder.Path("CHOSEN.FP");
    Answer("Choose", path);
    EXPECT_TRUE(AskFileName(session, name, FILTER, "Choose", true));
    EXPECT_EQ(name, path);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 0);
}

TEST_F(FileDialog, CancelTellsTheHostAndKeepsTheName) {
    char name[260] = "KEPT.FP";
    Answer("Choose", "");
    EXPECT_FALSE(AskFileName(session, name, FILTER, "Choose", false));
    EXPECT_STREQ(name, "KEPT.FP");
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
}

TEST_F(FileDialog, MouseMessagesBehindTheDialogAreDroppedWhateverTheAnswer) {
    const std::string path = folder.Path("CHOSEN.FP");
    for (const bool accepted : {false, true}) {
        char name[260] = "";
        Answer("Choose", accepted ? path : "");
        window_behind = host.Get();
        void *real = ReplaceImport("GetSaveFileNameA", reinterpret_cast<void *>(LeaveADoubleClick));
        real_dialog = reinterpret_cast<decltype(real_dialog)>(real);
        EXPECT_EQ(AskFileName(session, name, FILTER, "Choose", true), accepted);
        ReplaceImport("GetSaveFileNameA", real);
        MSG message;
        EXPECT_FALSE(PeekMessageA(&message, host.Get(), WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE))
            << accepted;
    }
}

TEST_F(FileDialog, SaveAsksBeforeItOverwritesAndNeitherLeavesTheCurrentFolder) {
    char name[260] = "";
    seen.clear();
    const ReplacedCall open("GetOpenFileNameA", NoteDialog);
    const ReplacedCall save("GetSaveFileNameA", NoteDialog);
    AskFileName(session, name, FILTER, "Choose", false);
    AskFileName(session, name, FILTER, "Keep", true);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].flags, DWORD{OFN_HIDEREADONLY | OFN_NOCHANGEDIR});
    EXPECT_EQ(seen[1].flags, DWORD{OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_OVERWRITEPROMPT});
    EXPECT_EQ(seen[0].title, "Choose");
    EXPECT_EQ(seen[1].title, "Keep");
    for (const SeenDialog &dialog : seen) {
        EXPECT_EQ(dialog.filter, std::string("Tessarine+ Files(*.FP)\0*.FP\0", 28));
        EXPECT_EQ(dialog.room, 129u); // 128 characters and their end
        EXPECT_EQ(dialog.owner, host.Get());
    }
}

TEST_F(FileDialog, HostsFolderIsOfferedUnlessItIsEmpty) {
    char name[260] = "";
    seen.clear();
    const ReplacedCall open("GetOpenFileNameA", NoteDialog);
    for (const char *offer : {"C:\\FORMS", "", static_cast<const char *>(nullptr)}) {
        host_data.FileDialogDir = offer;
        AskFileName(session, name, FILTER, "Choose", false);
    }
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0].folder, "C:\\FORMS");
    EXPECT_EQ(seen[1].folder, "(none)");
    EXPECT_EQ(seen[2].folder, "(none)");
}

TEST_F(FileDialog, FilterKeeps254CharactersAndBothItsEnds) {
    char name[260] = "";
    seen.clear();
    const ReplacedCall open("GetOpenFileNameA", NoteDialog);
    AskFileName(session, name, std::string(300, 'f').c_str(), "Choose", false);
    EXPECT_EQ(seen.at(0).filter, std::string(254, 'f') + '\0');
}

TEST_F(FileDialog, NameLongerThanTheRoomIsCut) {
    char name[260];
    std::memset(name, 'n', sizeof name);
    name[259] = 0;
    Answer("Choose", "");
    AskFileName(session, name, FILTER, "Choose", true);
    EXPECT_EQ(std::strlen(name), 259u);
}

TEST_F(FileDialog, SaveWithoutAPathAsksForOne) {
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    Answer("Save", folder.Path("ASKED"));
    EXPECT_EQ(Save(""), 1);
    EXPECT_EQ(ReadWholeFile(folder.Path("ASKED.FP")), form.Bytes());
}

TEST_F(FileDialog, CancelledSaveTriesNothing) {
    Answer("Save", "");
    EXPECT_EQ(Save(""), 0);
    EXPECT_EQ(host.Count(MESSAGE_NO_RESULT), 1);
}

TEST_F(FileDialog, SaveAsGivesItsNameToTheFormAndTheHostsBlock) {
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    const std::string path = folder.Path("OTHER.FP");
    char name[260] = "C:\\test";
    Answer("Save As", path);
    EXPECT_EQ(SaveAs(session, name), 1);
    EXPECT_EQ(session->FormBlock.FormFile, path);
    EXPECT_STREQ(session->form.Header.ReportName, "Test");
    EXPECT_EQ(ReadWholeFile(path).size(), form.Bytes().size());
}

TEST_F(FileDialog, SaveAsRenamesAReportThatIsNamedAfterItsFile) {
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    std::strcpy(session->form.Header.ReportName, "C:\\OLD.FP");
    char name[260] = "c:\\old.fp";
    Answer("Save As", folder.Path("NEW.FP"));
    EXPECT_EQ(SaveAs(session, name), 1);
    EXPECT_EQ(session->form.Header.ReportName, std::string(name).substr(0, 51));
}

TEST_F(FileDialog, CancelledSaveAsReturnsZero) {
    char name[260] = "C:\\OLD.FP";
    Answer("Save As", "");
    EXPECT_EQ(SaveAs(session, name), 0);
    EXPECT_STREQ(name, "C:\\OLD.FP");
}
