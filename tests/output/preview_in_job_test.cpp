// The preview's window while a print job of it is in hand.

#include <algorithm>

#include "commands.h"
#include "tests/support/client_picture.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"
#include "tests/support/printer_calls.h"

namespace {

using Calls = std::vector<std::string>;

constexpr uint32_t RED = 0xFF0000;
const Calls whole_job{"SetAbortProc", "StartDocA", "StartPage", "EndPage",
                      "StartPage",    "EndPage",   "EndDoc"};

class PreviewInAJob : public PreviewRun {
protected:
    PreviewInAJob() {
        boxes.OnDialog("Printing In Progress...", [](HWND) {});
    }

    // Prints two pages by the command; the routine has its turn before each call of that name. The
    // calls of the job.
    Calls PrintWith(const std::string &call, const std::function<void()> &look) {
        PrinterCalls calls(PrinterCalls::PRETEND);
        calls.Before(call, [&](HDC) { look(); });
        boxes.OnDialog("Print Selected Pages", [](DialogDriver dialog) {
            dialog.SetText(PRINT_FIRST_PAGE, "1");
            dialog.SetText(PRINT_LAST_PAGE, "2");
            dialog.Press(IDOK);
        });
        Command(COMMAND_PRINT);
        return calls.Log();
    }
    HDC JobDevice() const {
        return tessarine::session_table.PrinterContextTable[session->SessionId];
    }
    int RecordsOnPage(int page) const {
        const auto words =
            PageWords(ReadWholeFile(session->pages.ReportPath), static_cast<size_t>(page));
        return static_cast<int>(std::count_if(words.begin(), words.end(), [](const auto &word) {
            return word.rfind("record ", 0) == 0;
        }));
    }
};

} // namespace

TEST_F(PreviewInAJob, PaintKeepsTheWindowsOwnScaleAndTheJobItsOwn) {
    Finish(12);
    Send(WM_PAINT, 0);
    const ClientPicture before = PictureOf(Window());
    const tessarine::ViewState view = session->view;
    const int pixels = session->drawing.LogPixelsX;
    std::vector<int> of_job;
    PrintWith("EndPage", [&] {
        Send(WM_PAINT, 0);
        EXPECT_EQ(session->view.ViewWidth, view.ViewWidth);
        EXPECT_EQ(session->view.ViewHeight, view.ViewHeight);
        EXPECT_EQ(session->drawing.LogPixelsX, pixels);
        EXPECT_EQ(Differences(PictureOf(Window()), before), 0);
        SIZE extent{};
        GetViewportExtEx(JobDevice(), &extent);
        of_job.push_back(extent.cx);
    });
    const int printer_pixels = 300;
    ASSERT_NE(pixels, printer_pixels);
    EXPECT_EQ(of_job, (std::vector<int>{printer_pixels, printer_pixels}));
    EXPECT_EQ(Differences(PictureOf(Window()), before), 0);
}

TEST_F(PreviewInAJob, MenuBarAndPageEndAreThoseOfTheReport) {
    Finish(20); // four pages
    session->view.OriginY = session->report.PageBottomUnits - session->view.ViewHeight / 2;
    Send(WM_PAINT, 0);
    const int position = ScrollPosition(SB_VERT);
    ASSERT_GT(position, 0);
    ASSERT_EQ(PictureOf(Window()).Count(RED), 0); // not the last page
    PrintWith("EndPage", [&] {
        Send(WM_PAINT, 0);
        EXPECT_EQ(Enabled(), "xxxxx");
        EXPECT_EQ(ScrollPosition(SB_VERT), position);
        EXPECT_EQ(PictureOf(Window()).Count(RED), 0);
    });
    EXPECT_EQ(Enabled(), "xxxxx");
}

TEST_F(PreviewInAJob, MenuOfARunThatGoesOnIsThatOfItsFinishedPages) {
    ASSERT_EQ(Feed(16), 0); // three pages finished
    int looks = 0;
    PrintWith("EndPage", [&] {
        Send(WM_PAINT, 0);
        EXPECT_EQ(Enabled(), "xxx-x");
        ++looks;
    });
    EXPECT_EQ(looks, 2);
    EXPECT_EQ(session->report.PageCount, 4);
    EXPECT_EQ(Feed(1), 0);
}

TEST_F(PreviewInAJob, PagesAreTurnedAndTheJobCountsOn) {
    Finish(20);
    Command(COMMAND_FIT); // each step is a page
    std::vector<int> counted;
    const Calls calls = PrintWith("EndPage", [&] {
        counted.push_back(session->job.PageCount);
        Command(COMMAND_PAGE_DOWN);
        EXPECT_EQ(session->job.PageCount, counted.back());
    });
    EXPECT_EQ(counted, (std::vector<int>{1, 2}));
    EXPECT_EQ(calls, whole_job);
    EXPECT_EQ(Page(), 3);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewInAJob, SecondJobIsNotStarted) {
    Finish(20);
    for (const char *call : {"StartPage", "EndPage", "EndDoc"}) {
        bool tried = false;
        const Calls calls = PrintWith(call, [&] {
            boxes.OnDialog("Print Selected Pages", [](DialogDriver dialog) {
                ADD_FAILURE() << "a second job asks for its pages";
                dialog.Press(IDCANCEL);
            });
            Command(COMMAND_PRINT);
            tried = true;
        });
        EXPECT_TRUE(tried) << call;
        EXPECT_EQ(calls, whole_job) << call;
    }
}

// A host that feeds by a timer does so under the job's dialog as well.
TEST_F(PreviewInAJob, RecordsFedUnderTheJobGoToTheRunsOwnPages) {
    ASSERT_EQ(Feed(11), 0); // two pages finished
    int fed = 0;
    const Calls calls = PrintWith("EndPage", [&] {
        const int page = session->report.PageCount;
        EXPECT_EQ(Feed(5), 0);
        EXPECT_EQ(session->report.PageCount, page + 1);
        ++fed;
    });
    EXPECT_EQ(fed, 2);
    EXPECT_EQ(calls, whole_job);
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 5);
    for (int page = 0; page < 5; ++page) EXPECT_EQ(RecordsOnPage(page), page < 4 ? 5 : 1) << page;
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewInAJob, RunThatIsFinishedUnderTheJobIsWhole) {
    ASSERT_EQ(Feed(11), 0);
    bool finished = false;
    PrintWith("EndPage", [&] {
        if (finished) return;
        finished = true;
        EXPECT_EQ(run.Finish(), 0);
        EXPECT_EQ(Enabled(), "xxxxx");
    });
    EXPECT_EQ(run.page_count, 3);
    for (int page = 0; page < 3; ++page) EXPECT_EQ(RecordsOnPage(page), page < 2 ? 5 : 1) << page;
}

TEST_F(PreviewInAJob, CancelOfTheJobLeavesARunThatIsFedUnderItAlone) {
    ASSERT_EQ(Feed(11), 0);
    PrintWith("EndPage", [&] {
        DialogDriver(session->job.Progress.AbortDialog).Send(IDCANCEL);
        EXPECT_EQ(Feed(5), 0);
    });
    EXPECT_EQ(Feed(1), 0);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 4);
}

TEST_F(PreviewInAJob, CancelledRunThatItsHostEndsUnderTheJobIsReleasedBehindIt) {
    ASSERT_EQ(Feed(11), 0);
    const HWND window = Window();
    bool ended = false;
    const Calls calls = PrintWith("EndPage", [&] {
        if (ended) return;
        ended = true;
        session->report.CancelState = tessarine::CANCEL_STOP;
        EXPECT_EQ(run.Finish(), 0);
        EXPECT_TRUE(Open()); // the job works on it
        EXPECT_EQ(run.Finish(), CODE_NO_SESSION);
        EXPECT_EQ(run.Feed({{"NAME", "late"}}), CODE_NO_SESSION);
    });
    EXPECT_TRUE(ended);
    EXPECT_EQ(calls, (Calls{"SetAbortProc", "StartDocA", "StartPage", "EndPage", "EndDoc"}));
    EXPECT_FALSE(Open());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(FilesOfPages(), 0);
}
