// The preview's window while a print job of it is in hand.
#include "output/print_job.h"
#include "rep_dlg.h"
#include "tests/support/client_picture.h"
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
        boxes.OnDialog("Print Selected Pages", [](HWND dialog) {
            SetDlgItemTextA(dialog, PRINT_FIRST_PAGE, "1");
            SetDlgItemTextA(dialog, PRINT_LAST_PAGE, "2");
            PostMessageA(dialog, WM_COMMAND, IDOK, 0);
        });
        Command(695);
        return calls.Log();
    }
    int Bar() const { return GetScrollPos(Window(), SB_VERT); }
};

} // namespace

TEST_F(PreviewInAJob, PaintKeepsTheWindowsOwnScaleAndTheJobItsOwn) {
    Finish(12);
    Send(WM_PAINT, 0);
    const ClientPicture before = PictureOf(Window());
    const tessarine::ViewState view = session->view;
    const int pixels = session->device.LogPixelsX;
    int looks = 0;
    PrintWith("EndPage", [&] {
        const int of_job = session->device.LogPixelsX;
        EXPECT_NE(of_job, pixels);
        Send(WM_PAINT, 0);
        EXPECT_EQ(session->view.ViewWidth, view.ViewWidth);
        EXPECT_EQ(session->view.ViewHeight, view.ViewHeight);
        EXPECT_EQ(Differences(PictureOf(Window()), before), 0);
        EXPECT_EQ(session->device.LogPixelsX, of_job);
        EXPECT_EQ(session->device.LogPixelsY, of_job);
        ++looks;
    });
    EXPECT_EQ(looks, 2);
    EXPECT_EQ(session->device.LogPixelsX, pixels);
    EXPECT_EQ(Differences(PictureOf(Window()), before), 0);
}

TEST_F(PreviewInAJob, MenuBarAndPageEndAreThoseOfTheReport) {
    Finish(20); // four pages
    session->view.OriginY = session->run.PageBottomUnits - session->view.ViewHeight / 2;
    Send(WM_PAINT, 0);
    const int position = Bar();
    ASSERT_GT(position, 0);
    ASSERT_EQ(PictureOf(Window()).Count(RED), 0); // not the last page
    PrintWith("EndPage", [&] {
        Send(WM_PAINT, 0);
        EXPECT_EQ(Enabled(), "xxxxx");
        EXPECT_EQ(Bar(), position);
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
    EXPECT_EQ(session->run.PageCount, 4);
    EXPECT_EQ(Feed(1), 0);
}

TEST_F(PreviewInAJob, PagesAreTurnedAndTheJobCountsOn) {
    Finish(20);
    Command(696); // each step is a page
    std::vector<int> counted;
    const Calls calls = PrintWith("EndPage", [&] {
        counted.push_back(session->run.PageCount);
        Command(601);
        EXPECT_EQ(session->run.PageCount, counted.back());
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
            boxes.OnDialog("Print Selected Pages", [](HWND dialog) {
                ADD_FAILURE() << "a second job asks for its pages";
                PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
            });
            Command(695);
            tried = true;
        });
        EXPECT_TRUE(tried) << call;
        EXPECT_EQ(calls, whole_job) << call;
    }
}
