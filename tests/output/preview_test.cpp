#include <gtest/gtest.h>

#include <cstring>

#include "frame/session_table.h"
#include "output/preview.h"
#include "run/run.h"
#include "tests/support/message_boxes.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

constexpr int PHASE_CLOSING = tessarine::PHASE_CLOSING;

// A list of five records a page, previewed in a window of half a page.
struct ListForm : FormBuilder {
    ListForm() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 500);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

// A preview while its run is going on, and behind it.
class Preview : public testing::Test {
protected:
    Preview() : run(ListForm{}) {
        run.params.Device = 'S';
        run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
        run.params.WindowWidth = 500;
        run.params.WindowHeight = 500;
        EXPECT_EQ(run.Start(), 0) << boxes.LastText();
        session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    }
    ~Preview() override {
        if (!Open()) return;
        if (session->run.RunPhase != tessarine::PHASE_FINISHED) run.Finish();
        if (Open()) Send(WM_CLOSE, 0);
    }

    bool Open() const {
        return tessarine::GetSessionPointer(nullptr, run.params.SessionId) == session;
    }
    int Feed(int records) {
        int code = 0;
        for (int record = 0; record < records && !code; ++record)
            code = run.Feed({{"NAME", "record"}});
        return code;
    }
    void Send(UINT message, WPARAM wParam) {
        SendMessageA(session->device.Window, message, wParam, 0);
    }
    void Command(int number) { Send(WM_COMMAND, static_cast<WPARAM>(number)); }
    bool Enabled(int number) const {
        return !(GetMenuState(session->device.Menu, static_cast<UINT>(number), MF_BYCOMMAND) &
                 MF_GRAYED);
    }
    std::string Enabled() const {
        std::string enabled;
        for (const int number : {694, 695, 696, 624, 697}) enabled += Enabled(number) ? 'x' : '-';
        return enabled;
    }

    MessageBoxes boxes;
    ReportRun run;
    Session *session = nullptr;
};

} // namespace

TEST_F(Preview, MenuFollowsTheRun) {
    EXPECT_EQ(Enabled(), "----x");
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(session->run.PageCount, 2);
    EXPECT_EQ(Enabled(), "-xx-x");
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(Enabled(), "xxx-x");
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(Enabled(), "xxxxx");
    EXPECT_TRUE(Open());
}

TEST_F(Preview, NothingScrollsBeforeThePageIsFinished) {
    for (const int command : {600, 601, 602, 603, 604, 605}) Command(command);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 50));
    EXPECT_EQ(session->view.OriginY, 0);
    EXPECT_EQ(session->pages.ShownPageIndex, 0);
}

TEST_F(Preview, ScrollingRunsOnAcrossPageEnds) {
    ASSERT_EQ(Feed(15), 0);
    ASSERT_EQ(run.Finish(), 0);
    const int page_bottom = session->run.PageBottomUnits;
    int steps = 0;
    while (session->pages.ShownPageIndex == 0 && steps++ < 20) Command(601);
    EXPECT_EQ(session->pages.ShownPageIndex, 1);
    EXPECT_EQ(session->view.OriginY, 0);
    Command(600);
    EXPECT_EQ(session->pages.ShownPageIndex, 0);
    EXPECT_EQ(session->view.OriginY,
              page_bottom - (session->view.ViewHeight - session->device.FontHeight));
}

TEST_F(Preview, BottomOfTheLastPageIsTheEnd) {
    ASSERT_EQ(Feed(5), 0);
    ASSERT_EQ(run.Finish(), 0);
    for (int step = 0; step < 20; ++step) Command(601);
    const int origin = session->view.OriginY;
    Command(601);
    EXPECT_EQ(session->view.OriginY, origin);
    EXPECT_EQ(session->pages.ShownPageIndex, 0);
}

TEST_F(Preview, FittedPagesTurnWhole) {
    ASSERT_EQ(Feed(15), 0);
    ASSERT_EQ(run.Finish(), 0);
    Command(696);
    EXPECT_EQ(session->view.FitPage, 1u);
    char text[20] = "";
    GetMenuStringA(session->device.Menu, 696, text, sizeof text, MF_BYCOMMAND);
    EXPECT_STREQ(text, "&Zoom");
    Command(605);
    EXPECT_EQ(session->view.OriginX, 0);
    Command(603);
    EXPECT_EQ(session->pages.ShownPageIndex, 1);
    Command(602);
    EXPECT_EQ(session->pages.ShownPageIndex, 0);
    Command(696);
    GetMenuStringA(session->device.Menu, 696, text, sizeof text, MF_BYCOMMAND);
    EXPECT_STREQ(text, "Pre&view");
}

TEST_F(Preview, ThumbAndScrollBarSpanTheWholeReport) {
    ASSERT_EQ(Feed(20), 0);
    ASSERT_EQ(run.Finish(), 0);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 50));
    EXPECT_EQ(session->pages.ShownPageIndex, 2);
    EXPECT_EQ(GetScrollPos(session->device.Window, SB_VERT), 50);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100));
    EXPECT_EQ(session->pages.ShownPageIndex, 3);
}

TEST_F(Preview, JumpIsForcedIntoTheFinishedPages) {
    ASSERT_EQ(Feed(20), 0);
    ASSERT_EQ(run.Finish(), 0);
    const auto jump = [&](const char *number) {
        boxes.OnDialog("Page Jump", [number](HWND dialog) {
            SetDlgItemTextA(dialog, 895, number);
            PostMessageA(dialog, WM_COMMAND, IDOK, 0);
        });
        Command(694);
        return session->pages.ShownPageIndex + 1;
    };
    EXPECT_EQ(jump("3"), 3);
    EXPECT_EQ(jump("99"), 4);
    EXPECT_EQ(jump("0"), 1);
    EXPECT_EQ(jump("-5"), 1);
    EXPECT_EQ(jump("2"), 2);
    EXPECT_EQ(jump(""), 1);
}

TEST_F(Preview, CloseDuringTheRunEndsItWith5) {
    ASSERT_EQ(Feed(2), 0);
    PostMessageA(session->device.Window, WM_CLOSE, 0, 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Preview, CancelledRunLeavesNoFileOfItsPages) {
    ASSERT_EQ(Feed(6), 0);
    const std::string report = session->pages.ReportPath;
    // A file without its header: the first 490 bytes are a hole until the run has ended.
    EXPECT_EQ(ReadWholeFile(report).substr(0, 490), std::string(490, '\0'));
    session->run.CancelState = tessarine::CANCEL_STOP;
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(GetFileAttributesA(report.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Preview, CloseIsIgnoredInTheClosingSectionsButExitIsNot) {
    ASSERT_EQ(Feed(2), 0);
    session->run.RunPhase = PHASE_CLOSING;
    Send(WM_CLOSE, 0);
    EXPECT_EQ(session->run.CancelState, tessarine::CANCEL_NONE);
    Command(697);
    EXPECT_EQ(session->run.CancelState, tessarine::CANCEL_STOP);
    session->run.RunPhase = tessarine::PHASE_RECORDS;
}

TEST_F(Preview, ClosingTheWindowEndsTheSessionAndItsFiles) {
    ASSERT_EQ(Feed(7), 0);
    ASSERT_EQ(run.Finish(), 0);
    const std::string report = session->pages.ReportPath;
    EXPECT_NE(GetFileAttributesA(report.c_str()), INVALID_FILE_ATTRIBUTES);
    Command(697);
    EXPECT_FALSE(Open());
    EXPECT_EQ(GetFileAttributesA(report.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Preview, RunWithoutRecordsShowsOneEmptyPage) {
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 0);
    EXPECT_EQ(session->run.PageCount, 1);
    EXPECT_NE(session->pages.ShownPage, nullptr);
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    EXPECT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(+HeaderOf(report).RecordCount, 0);
    ASSERT_EQ(PagesOf(report).size(), 1u);
    EXPECT_TRUE(DrawingOf(PagesOf(report)[0]).empty());
}

TEST_F(Preview, SavedReportIsTheFileItselfAndALongerFileKeepsItsTail) {
    ASSERT_EQ(Feed(6), 0);
    ASSERT_EQ(run.Finish(), 0);
    TemporaryFolder folder;
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    const std::string tail(100, 't');
    WriteWholeFile(folder.Path("LONGER.FRC"), std::string(report.size(), 'x') + tail);
    for (const char *name : {"SAVED", "LONGER.FRC"}) {
        boxes.OnDialog("Save the Report to a Disk File", [&](HWND dialog) {
            constexpr int NAME_EDIT = 0x480;
            constexpr int NAME_COMBO = 0x47C;
            HWND edit = GetDlgItem(dialog, NAME_EDIT);
            if (!edit) edit = GetDlgItem(dialog, NAME_COMBO);
            SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(folder.Path(name).c_str()));
            PostMessageA(dialog, WM_COMMAND, IDOK, 0);
        });
        boxes.Answer(IDYES); // to writing over a file
        Command(tessarine::COMMAND_SAVE);
    }
    EXPECT_EQ(ReadWholeFile(folder.Path("SAVED.FRC")), report);
    EXPECT_EQ(ReadWholeFile(folder.Path("LONGER.FRC")), report + tail);
}
