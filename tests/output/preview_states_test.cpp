// Who may call what on a preview, and when.
#include "commands.h"
#include "frame/session_table.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "tests/support/failing_call.h"
#include "tests/support/host_window.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"

namespace {

class PreviewStates : public PreviewRun {
protected:
    int Slot() const { return run.params.SessionId; }
};

// A preview that a window of the host owns.
class OwnedPreview : public PreviewRun {
protected:
    explicit OwnedPreview(const FormBuilder &form = FiveAPage{}) : PreviewRun(form) {
        owner = CreateWindowExA(0, "STATIC", "Owner", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                nullptr, nullptr);
        run.params.ParentWindow = owner;
    }
    ~OwnedPreview() override {
        if (IsWindow(owner)) DestroyWindow(owner);
    }
    HWND owner;
};

// A form whose filter doesn't compile, which shows when its window stands.
struct NoFilter : FiveAPage {
    NoFilter() { Filter({503}); }
};

// A page footer that leaves no room for anything else, which shows when the window stands.
struct NoRoom : FiveAPage {
    NoRoom() {
        Section(SECTION_PAGE_FOOTER, 2900);
        Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    }
};

class FailedOwnedPreview : public OwnedPreview {
protected:
    FailedOwnedPreview() : OwnedPreview(NoRoom{}) {}
    void SetUp() override {}
};

class FailedPreview : public PreviewRun {
protected:
    FailedPreview() : PreviewRun(NoFilter{}) {}
    void SetUp() override {}
};

// The windows of previews that stand.
int PreviewWindows() {
    int count = 0;
    for (HWND window = nullptr;
         (window = FindWindowExA(nullptr, window, "RepClass32", nullptr)) != nullptr;)
        ++count;
    return count;
}

} // namespace

TEST_F(PreviewStates, SecondEndIsNoneAndChangesNothing) {
    Finish(12);
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    int32_t pages = 77;
    EXPECT_EQ(tessarine::RepExit(Slot(), 0, &pages), CODE_NO_SESSION);
    EXPECT_EQ(pages, 77);
    EXPECT_EQ(ReadWholeFile(session->pages.ReportPath), report);
    EXPECT_EQ(Enabled(), "xxxxx");
    Send(WM_CLOSE, 0);
    EXPECT_FALSE(Open());
}

TEST_F(PreviewStates, RecordBehindTheEndIsRefusedAndThePreviewCanBeClosed) {
    Finish(12);
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    EXPECT_EQ(Feed(1), CODE_NO_SESSION);
    EXPECT_EQ(ReadWholeFile(session->pages.ReportPath), report);
    EXPECT_EQ(PageWords(report, 2).size(), 4u); // records 10 and 11 with their labels
    Send(WM_CLOSE, 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(PreviewStates, EndThatFailsLeavesAPreviewThatItsUserCloses) {
    ASSERT_EQ(Feed(12), 0);
    {
        const FailingCall failing("CopyMetaFileA", CopyMetaFileA, nullptr);
        EXPECT_EQ(run.Finish(), CODE_FILE);
    }
    ASSERT_TRUE(Open());
    EXPECT_EQ(run.Finish(), CODE_NO_SESSION);
    Command(COMMAND_PAGE_DOWN);
    EXPECT_EQ(Enabled(), "xxx-x"); // the two pages that are whole
    Send(WM_CLOSE, 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(PreviewStates, EndOfACancelledRunUnderADialogReleasesItBehindTheDialog) {
    ASSERT_EQ(Feed(12), 0);
    const HWND window = Window();
    boxes.OnDialog("Page Jump", [&](DialogDriver dialog) {
        session->report.CancelState = tessarine::CANCEL_STOP;
        EXPECT_EQ(run.Finish(), 0);
        EXPECT_TRUE(Open());
        EXPECT_TRUE(IsWindow(dialog));
        EXPECT_EQ(Feed(1), CODE_NO_SESSION);
        dialog.SetText(JUMP_PAGE, "1");
        dialog.Press(IDOK);
    });
    Command(COMMAND_JUMP);
    EXPECT_FALSE(Open());
    EXPECT_FALSE(IsWindow(window));
}

// The failure comes while the run's own box waits, and is no later record's.
TEST_F(PreviewStates, PageThatCannotBeReadUnderABoxOfTheRunFailsThatRecordAlone) {
    ASSERT_EQ(Feed(12), 0);
    bool under_a_box = false;
    boxes.OnDialog("", [&](DialogDriver box) {
        const FailingCall failing("GetMetaFileA", GetMetaFileA, nullptr);
        under_a_box = true;
        Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
        box.Press(IDOK);
    });
    tessarine::Cell *filter = session->form.Header.ReportFilter;
    FormBuilder::Store({503}, filter); // an operator without its operands
    EXPECT_EQ(Feed(1), CODE_FILE);
    EXPECT_TRUE(under_a_box);
    EXPECT_EQ(boxes.LastText(), "Error getting the disk meta file(ReadMetaFilePage)");
    FormBuilder::Store({}, filter);
    EXPECT_EQ(Feed(1), 0) << boxes.LastText();
}

TEST_F(FailedPreview, WindowOfAStartThatFailedIsClosedByItsUser) {
    const int before = PreviewWindows();
    ASSERT_EQ(run.Start(), CODE_EXPRESSION);
    const HWND window = FindWindowA("RepClass32", nullptr);
    ASSERT_EQ(PreviewWindows(), before + 1);
    Session *failed = tessarine::GetSessionPointer(window, 0);
    ASSERT_TRUE(failed);
    EXPECT_EQ(tessarine::RepRec(failed->SessionId, 0), CODE_NO_SESSION);
    SendMessageA(window, WM_PAINT, 0, 0);
    SendMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(PreviewWindows(), before);
    EXPECT_FALSE(tessarine::SessionStands(failed));
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(OwnedPreview, OwnerDestroyedBehindTheRunEndsTheSession) {
    Finish(12);
    DestroyWindow(owner);
    EXPECT_FALSE(Open());
    EXPECT_FALSE(tessarine::SessionStands(session));
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(OwnedPreview, OwnerDestroyedDuringTheRunEndsItWith5AndItsTablesStandUntilTheEnd) {
    ASSERT_EQ(Feed(7), 0);
    DestroyWindow(owner);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(OwnedPreview, OwnerDestroyedBeforeTheFirstRecordEndsTheRunWith5) {
    DestroyWindow(owner);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
}

TEST_F(OwnedPreview, OwnerDestroyedUnderADialogEndsTheSessionBehindIt) {
    Finish(12);
    boxes.OnDialog("Page Jump", [&](HWND) {
        DestroyWindow(owner);
        EXPECT_TRUE(Open());
    });
    Command(COMMAND_JUMP);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(FailedOwnedPreview, OwnerDestroyedUnderABoxOfAStartThatFailsEndsTheSession) {
    const int before = PreviewWindows();
    Session *failed = nullptr;
    boxes.OnDialog("", [&](HWND) {
        failed = tessarine::GetSessionPointer(FindWindowA("RepClass32", nullptr), 0);
        DestroyWindow(owner);
    });
    EXPECT_EQ(run.Start(), CODE_PRINTER);
    ASSERT_TRUE(failed);
    EXPECT_FALSE(tessarine::SessionStands(failed));
    EXPECT_EQ(PreviewWindows(), before);
}

// The question for the pages is no job yet.
TEST_F(PreviewStates, CloseUnderTheQuestionForPagesStopsTheRunAndPrintsNothing) {
    ASSERT_EQ(Feed(12), 0);
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        Send(WM_CLOSE);
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_PRINT);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
}

TEST_F(PreviewStates, ReportThatIsNotWholeIsNotSaved) {
    ASSERT_EQ(Feed(12), 0);
    bool asked = false;
    boxes.OnDialog("Save the Report to a Disk File", [&](DialogDriver dialog) {
        asked = true;
        dialog.Press(IDCANCEL);
    });
    bool tried = false;
    boxes.OnDialog("Fatal Error", [&](DialogDriver box) {
        tried = true;
        Command(COMMAND_SAVE);
        box.Press(IDOK);
    });
    {
        const FailingCall failing("CopyMetaFileA", CopyMetaFileA, nullptr);
        EXPECT_EQ(run.Finish(), CODE_FILE);
    }
    EXPECT_TRUE(tried);
    EXPECT_FALSE(asked);
    Send(WM_CLOSE);
}
