#include <cstdio>
#include <cstring>
#include <set>

#include "output/preview_window.h"
#include "run/message_pump.h"
#include "tests/support/failing_call.h"
#include "tests/support/host_window.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"

namespace {

// The run and its window: start, menu, first page, cancel and end.
class Preview : public PreviewRun {};

struct Told {
    HWND window;
    UINT message;
};
std::vector<Told> told;
int WINAPI Callback(HWND window, UINT message) {
    told.push_back({window, message});
    return 0;
}

// A preview with the host's window behind it.
class HostedPreview : public PreviewRun {
protected:
    void SetUp() override {
        run.params.ParentWindow = host.Get();
        told.clear();
        Start();
    }
    HostWindow host;
};

} // namespace

TEST(PreviewProcedure, NoWindowIsNoSessions) {
    const BareSession session;
    Session *first = tessarine::GetSessionPointer(nullptr, 0); // of the slot that 0 would name
    ASSERT_NE(first, nullptr);
    const int32_t before = first->report.CancelState;
    tessarine::RepWndProc(nullptr, WM_CLOSE, 0, 0);
    EXPECT_EQ(first->report.CancelState, before);
}

// ---- the window and its menu -------------------------------------------------------------------

TEST_F(Preview, WindowHasItsClassTitleBarsAndTheMenuInItsOrder) {
    char text[MAX_PATH] = "";
    GetClassNameA(Window(), text, sizeof text);
    EXPECT_STREQ(text, "RepClass32");
    EXPECT_EQ(GetClassLongA(Window(), GCL_STYLE), 4139u);
    GetWindowTextA(Window(), text, sizeof text);
    EXPECT_STREQ(text, run.params.FormFile);
    EXPECT_EQ(+session->ViewBlock.ReportWindow, Window());
    const std::vector<std::pair<UINT, std::string>> entries = {
        {694, "&Jump"}, {695, "&Print"}, {696, "Pre&view"}, {624, "&Save"}, {697, "&Exit"}};
    ASSERT_EQ(GetMenuItemCount(GetMenu(Window())), 5);
    for (int place = 0; place < 5; ++place) {
        const auto &[number, words] = entries[static_cast<size_t>(place)];
        EXPECT_EQ(GetMenuItemID(GetMenu(Window()), place), number);
        EXPECT_EQ(MenuText(static_cast<int>(number)), words);
    }
    for (const int bar : {SB_HORZ, SB_VERT}) {
        EXPECT_EQ(ScrollRange(bar), (std::pair{0, 100}));
        EXPECT_EQ(ScrollPosition(bar), 0);
    }
}

TEST_F(Preview, MessagesThatItDoesNotHandleAreTheSystems) {
    EXPECT_EQ(Send(WM_GETTEXTLENGTH), static_cast<LRESULT>(std::strlen(run.params.FormFile)));
    for (const UINT message : {WM_COMMAND, WM_VSCROLL, WM_HSCROLL, WM_PAINT})
        EXPECT_EQ(tessarine::RepWndProc(Window(), message, COMMAND_PAGE_UP, 0), 0) << message;
}

TEST_F(Preview, WindowOfItsClassWithoutASessionIsTheSystems) {
    const HWND window = CreateWindowExA(0, "RepClass32", "", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90,
                                        nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    SendMessageA(window, WM_COMMAND, COMMAND_EXIT, 0);
    EXPECT_TRUE(IsWindow(window));
    SendMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(Open());
}

TEST_F(Preview, MenuFollowsTheRun) {
    EXPECT_EQ(Enabled(), "----x");
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(Enabled(), "----x"); // the first page is full and not finished
    ASSERT_EQ(Feed(1), 0);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_EQ(Enabled(), "-xx-x");
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(Enabled(), "xxx-x");
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(Enabled(), "xxxxx");
    EXPECT_TRUE(Open());
}

TEST_F(Preview, FinishedReportOfOnePageHasNoJump) {
    Finish(2);
    EXPECT_EQ(Enabled(), "-xxxx");
}

TEST_F(Preview, MenuIsSetAnewAfterEveryMessageOfTheWindow) {
    ASSERT_EQ(Feed(6), 0);
    for (const UINT message : {WM_VSCROLL, WM_HSCROLL, WM_PAINT}) {
        EnableMenuItem(GetMenu(Window()), COMMAND_PRINT, MF_BYCOMMAND | MF_GRAYED);
        Send(message, MAKEWPARAM(SB_ENDSCROLL, 0));
        EXPECT_EQ(Enabled(), "-xx-x") << message;
    }
    EnableMenuItem(GetMenu(Window()), COMMAND_PRINT, MF_BYCOMMAND | MF_GRAYED);
    Command(699); // none of the table
    EXPECT_EQ(Enabled(), "--x-x");
}

TEST_F(Preview, FirstPageIsShownAsSoonAsItIsFinishedAndStaysWhileTheRunGoesOn) {
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(session->pages.ShownPage, nullptr);
    ASSERT_EQ(Feed(1), 0);
    const HMETAFILE page = session->pages.ShownPage;
    EXPECT_NE(page, nullptr);
    ASSERT_EQ(Feed(20), 0);
    EXPECT_EQ(session->pages.ShownPage, page);
    EXPECT_EQ(Page(), 1);
}

TEST_F(Preview, PagesAreReadBetweenRecords) {
    ASSERT_EQ(Feed(16), 0);
    Post(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100));
    EXPECT_EQ(Page(), 1);
    ASSERT_EQ(Feed(1), 0);
    EXPECT_EQ(Page(), 3); // the last that is finished
    ASSERT_EQ(Feed(10), 0);
    EXPECT_EQ(Page(), 3);
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(Page(), 3);
}

TEST_F(Preview, RunWithoutRecordsShowsOneEmptyPage) {
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_NE(session->pages.ShownPage, nullptr);
}

// ---- the turns of messages ---------------------------------------------------------------------

TEST_F(HostedPreview, EveryWindowOfTheThreadHasItsTurnAfterEachRecord) {
    constexpr UINT message = WM_USER + 500;
    for (int record = 1; record <= 3; ++record) {
        PostMessageA(host.Get(), message, 0, 0);
        EXPECT_EQ(host.Count(message), record - 1);
        ASSERT_EQ(Feed(1), 0);
        EXPECT_EQ(host.Count(message), record);
    }
}

TEST_F(Preview, KeysOfATableThatAHostGivesAreItsCommands) {
    Finish(0);
    ACCEL key{FVIRTKEY, VK_NEXT, COMMAND_PAGE_DOWN};
    session->Desk.AccelTable = CreateAcceleratorTableA(&key, 1);
    Post(WM_KEYDOWN, VK_NEXT);
    tessarine::PumpMessages(session);
    EXPECT_EQ(session->view.OriginY, session->view.ViewHeight);
    DestroyAcceleratorTable(session->Desk.AccelTable);
    session->Desk.AccelTable = nullptr;
}

TEST_F(Preview, QuitIsLeftToTheHostsOwnLoop) {
    PostQuitMessage(7);
    EXPECT_EQ(Feed(2), 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

// ---- cancel and end ----------------------------------------------------------------------------

TEST_F(Preview, CloseDuringTheRunEndsItWith5) {
    ASSERT_EQ(Feed(2), 0);
    Post(WM_CLOSE);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_TRUE(Open());
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Preview, ExitDuringTheRunEndsItWith5AndLeavesNoFile) {
    ASSERT_EQ(Feed(7), 0);
    EXPECT_GT(FilesOfPages(), 0);
    PostCommand(COMMAND_EXIT);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(Preview, PumpStopsAtTheMessageThatCancels) {
    ASSERT_EQ(Feed(11), 0);
    Post(WM_CLOSE);
    Post(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100));
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(Page(), 1);
}

TEST_F(Preview, CloseAndExitBeforeTheFirstRecordAreTakenBackByIt) {
    Send(WM_CLOSE, 0);
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_STOP);
    EXPECT_TRUE(Open());
    EXPECT_EQ(Feed(1), 0); // the first record starts the printing anew
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_NONE);
}

TEST_F(Preview, CloseIsIgnoredInTheClosingSectionsButExitIsNot) {
    ASSERT_EQ(Feed(2), 0);
    session->report.RunPhase = tessarine::PHASE_CLOSING;
    Send(WM_CLOSE, 0);
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_NONE);
    Command(COMMAND_EXIT);
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_STOP);
    session->report.RunPhase = tessarine::PHASE_RECORDS;
}

TEST_F(Preview, CloseWhileASheetIsFilledOutCancels) {
    ASSERT_EQ(Feed(2), 0);
    session->report.RunPhase = tessarine::PHASE_FILL;
    Send(WM_CLOSE, 0);
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_STOP);
    session->report.RunPhase = tessarine::PHASE_RECORDS;
}

TEST_F(Preview, ClosingTheWindowEndsTheSessionAndItsFiles) {
    for (const bool by_command : {true, false}) {
        if (!Open()) Start();
        Finish(7);
        const HWND window = Window();
        EXPECT_GT(FilesOfPages(), 0);
        if (by_command)
            Command(COMMAND_EXIT);
        else
            Send(WM_CLOSE, 0);
        EXPECT_FALSE(Open());
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(FilesOfPages(), 0);
    }
}

TEST_F(HostedPreview, EndOfTheSessionIsTheLastThingTheHostHears) {
    Finish(7);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
    EXPECT_EQ(tessarine::RepGetParent(Window(), 0), host.Get());
    EXPECT_EQ(tessarine::RepGetParent(nullptr, run.params.SessionId), host.Get());
    Command(COMMAND_EXIT);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
    EXPECT_EQ(tessarine::RepGetParent(nullptr, run.params.SessionId), nullptr);
}

TEST_F(HostedPreview, CallbackHearsOfTheEndInPlaceOfTheWindow) {
    const HWND window = Window();
    EXPECT_EQ(tessarine::RepSetMsgCallback(window, 0, Callback), 1);
    EXPECT_EQ(tessarine::RepSetMsgCallback(host.Get(), 0, Callback), 0);
    Finish(7);
    EXPECT_TRUE(told.empty());
    Send(WM_CLOSE, 0);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].window, window);
    EXPECT_EQ(told[0].message, MESSAGE_SESSION_ENDED);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(HostedPreview, CancelledRunTellsTheHostAtItsRelease) {
    ASSERT_EQ(Feed(1), 0);
    Post(WM_CLOSE);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(Preview, CallbackWithoutAParentWindowIsNotCalled) {
    told.clear();
    EXPECT_EQ(tessarine::RepSetMsgCallback(nullptr, run.params.SessionId, Callback), 1);
    Finish(1);
    Send(WM_CLOSE, 0);
    EXPECT_FALSE(Open());
    EXPECT_TRUE(told.empty());
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(Preview, PageThatCannotBeReadDuringTheRunEndsItsRecordWith1) {
    ASSERT_EQ(Feed(11), 0);
    const FailingCall failing("GetMetaFileA", GetMetaFileA, nullptr);
    PostCommand(COMMAND_PAGE_DOWN);
    PostCommand(COMMAND_PAGE_DOWN);
    PostCommand(COMMAND_PAGE_DOWN);
    EXPECT_EQ(Feed(1), CODE_FILE);
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    EXPECT_EQ(boxes.LastText(), "Error getting the disk meta file(ReadMetaFilePage)");
    EXPECT_EQ(session->pages.ShownPage, nullptr);
}

TEST_F(Preview, PageThatCannotBeReadBehindTheRunIsToldAndThePreviewGoesOn) {
    Finish(11);
    {
        const FailingCall failing("GetMetaFileA", GetMetaFileA, nullptr);
        Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
    }
    EXPECT_EQ(boxes.Texts(),
              std::vector<std::string>{"Error getting the disk meta file(ReadMetaFilePage)"});
    EXPECT_EQ(session->ErrorCode, CODE_FILE);
    ASSERT_TRUE(Open());
    Send(WM_PAINT, 0);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
    EXPECT_EQ(Page(), 3);
    EXPECT_NE(session->pages.ShownPage, nullptr);
}

TEST_F(Preview, CloseBehindAMessageOfAFailureWaitsForItsAnswer) {
    Finish(11);
    bool open_behind = false;
    boxes.OnDialog("Fatal Error", [&](DialogDriver box) {
        Send(WM_CLOSE, 0);
        open_behind = Open();
        box.Press(IDOK);
    });
    const FailingCall failing("GetMetaFileA", GetMetaFileA, nullptr);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
    EXPECT_TRUE(open_behind);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(Preview, BitmapThatCannotBeMadeIsToldWithItsWords) {
    Finish(1);
    {
        const FailingCall failing("CreateCompatibleBitmap", CreateCompatibleBitmap, nullptr);
        SetWindowPos(Window(), nullptr, 0, 0, 450, 420, SWP_NOMOVE | SWP_NOZORDER);
        Send(WM_PAINT, 0);
    }
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    EXPECT_EQ(boxes.LastText(), "Unable to create compatible DC");
    EXPECT_EQ(session->ErrorCode, 12);
    Send(WM_PAINT, 0); // and the next one has it
    EXPECT_NE(session->view.OffscreenBitmap, nullptr);
}

TEST_F(Preview, CancelledRunLeavesNoFileOfItsPages) {
    ASSERT_EQ(Feed(6), 0);
    // A file without its header: the first 490 bytes are a hole until the run has ended.
    EXPECT_EQ(ReadWholeFile(session->pages.ReportPath).substr(0, 490), std::string(490, '\0'));
    session->report.CancelState = tessarine::CANCEL_STOP;
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST_F(Preview, ReportOfARunWithoutRecordsHasOneEmptyPage) {
    ASSERT_EQ(run.Finish(), 0);
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    EXPECT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(+HeaderOf(report).RecordCount, 0);
    ASSERT_EQ(PagesOf(report).size(), 1u);
    EXPECT_TRUE(DrawingOf(PagesOf(report)[0]).empty());
}

namespace {

// The record numbers that the status strip told while one stands.
class StripWatch {
public:
    StripWatch() {
        told_.clear();
        real_ = reinterpret_cast<decltype(real_)>(
            ReplaceImport("ExtTextOutA", reinterpret_cast<void *>(Note)));
    }
    ~StripWatch() { ReplaceImport("ExtTextOutA", reinterpret_cast<void *>(real_)); }
    StripWatch(const StripWatch &) = delete;
    StripWatch &operator=(const StripWatch &) = delete;

    const std::set<int> &Told() const { return told_; }

private:
    static BOOL WINAPI Note(HDC device, int x, int y, UINT options, const RECT *clip, LPCSTR text,
                            UINT length, const INT *advances) {
        int record = 0;
        if (std::sscanf(text, "   Processing Record#: %d", &record) == 1) told_.insert(record);
        return real_(device, x, y, options, clip, text, length, advances);
    }
    static inline std::set<int> told_;
    static inline decltype(&Note) real_;
};

} // namespace

TEST_F(Preview, StripTellsEveryFifthRecordAndFromFiftyOnEveryTenth) {
    ASSERT_EQ(Feed(7), 0); // the first page has been painted
    const StripWatch strip;
    ASSERT_EQ(Feed(84), 0);
    EXPECT_EQ(strip.Told(), (std::set<int>{10, 15, 20, 25, 30, 35, 40, 45, 50, 60, 70, 80, 90}));
}
