// Cancelling a job of the preview, or closing the preview behind it, at each of its moments.
#include <gtest/gtest.h>

#include "commands.h"
#include "output/print_job.h"
#include "tests/support/preview_printing.h"

using namespace tessarine;

namespace {

using Calls = std::vector<std::string>;

class CancelledJob : public PreviewPrinting {};

const Calls two_pages{"SetAbortProc", "StartDocA", "StartPage", "EndPage",
                      "StartPage",    "EndPage",   "EndDoc"};

// The pages of a range, through the command of the menu.
void AskFor(MessageBoxes *boxes, const char *first, const char *last) {
    boxes->OnDialog("Print Selected Pages", [first, last](DialogDriver dialog) {
        dialog.SetText(PRINT_FIRST_PAGE, first);
        dialog.SetText(PRINT_LAST_PAGE, last);
        dialog.Press(IDOK);
    });
}

} // namespace

// ---- Cancel ------------------------------------------------------------------------------------

TEST_F(CancelledJob, CancelFinishesThePageInHandAndThePreviewGoesOn) {
    FeedToPage(5);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndPage", [&](HDC) {
        if (calls.Count("EndPage") == 2) Progress().Press(IDCANCEL);
    });
    std::string device_line;
    calls.Before("EndDoc", [&](HDC) { device_line = Progress().Text(PROGRESS_DEVICE); });
    EXPECT_EQ(Print(1, 4), 1);
    EXPECT_EQ(calls.Log(), two_pages);
    EXPECT_EQ(device_line, "Cancelling..., Please Wait.");
    EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
    EXPECT_EQ(session->report.PageCount, 5);
    EXPECT_TRUE(IsWindowEnabled(session->Window));
    FeedToPage(6);
    EXPECT_EQ(run.Finish(), 0);
}

TEST_F(CancelledJob, CancelBeforeTheFirstPageStillPrintsThatPage) {
    FeedToPage(5);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("StartPage", [&](HDC) { Progress().Send(IDCANCEL); });
    EXPECT_EQ(Print(1, 4), 1);
    EXPECT_EQ(calls.Count("EndPage"), 1);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
}

TEST_F(CancelledJob, CancelBehindTheLastPageChangesNothing) {
    FeedToPage(4);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndDoc", [&](HDC) { SendMessageA(Progress(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(Print(1, 2), 1);
    EXPECT_EQ(calls.Log(), two_pages);
    EXPECT_EQ(Progress(), nullptr);
}

TEST_F(CancelledJob, CancelWhileTheDocumentEndsLeavesTheRunGoing) {
    FeedToPage(4);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndDoc", [&](HDC) {
        EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
        Progress().Send(IDCANCEL);
    });
    EXPECT_EQ(Print(1, 2), 1);
    EXPECT_EQ(calls.Log(), two_pages);
    EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
    FeedToPage(5);
    EXPECT_EQ(run.Finish(), 0);
}

TEST_F(CancelledJob, SpoolersErrorStopsTheJobAtItsPageAndNotTheRun) {
    FeedToPage(5);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndPage", [&](HDC device) {
        PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0);
        ScrPrintProc(device, SP_OUTOFDISK);
    });
    EXPECT_EQ(Print(1, 4), 1);
    EXPECT_EQ(calls.Count("EndPage"), 1);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    FeedToPage(6);
    EXPECT_EQ(run.Finish(), 0);
}

// ---- the preview's own Close and Exit ----------------------------------------------------------

TEST_F(CancelledJob, CloseAndExitWhileTheRunGoesOnStopTheJobAlone) {
    FeedToPage(5);
    AskFor(&boxes, "1", "4");
    for (const auto &[message, number] :
         {std::pair{UINT{WM_CLOSE}, 0}, {WM_COMMAND, COMMAND_EXIT}}) {
        PrinterCalls calls(PrinterCalls::PRETEND);
        calls.Before("EndPage",
                     [&, message, number](HDC) { Post(message, static_cast<WPARAM>(number)); });
        Command(COMMAND_PRINT);
        EXPECT_EQ(calls.Count("EndPage"), 1) << number;
        EXPECT_EQ(calls.Count("EndDoc"), 1) << number;
        EXPECT_EQ(Progress(), nullptr) << number;
    }
    FeedToPage(6);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 6);
}

TEST_F(CancelledJob, CloseAndExitBehindTheRunWaitForTheEndOfTheJob) {
    bool first = true;
    for (const auto &[message, number] :
         {std::pair{UINT{WM_CLOSE}, 0}, {WM_COMMAND, COMMAND_EXIT}}) {
        if (!first) Start();
        first = false;
        FeedToPage(3);
        ASSERT_EQ(run.Finish(), 0);
        AskFor(&boxes, "1", "3");
        PrinterCalls calls(PrinterCalls::PRETEND);
        calls.Before("EndPage", [&, message, number](HDC) {
            if (calls.Count("EndPage") == 1) Post(message, static_cast<WPARAM>(number));
        });
        bool stands_at_end = false;
        calls.Before("EndDoc", [&](HDC) { stands_at_end = Open() && IsWindow(Window()); });
        const HWND window = Window();
        Command(COMMAND_PRINT);
        EXPECT_EQ(calls.Count("EndPage"), 3) << number;
        EXPECT_TRUE(stands_at_end) << number;
        EXPECT_FALSE(Open()) << number;
        EXPECT_FALSE(IsWindow(window)) << number;
    }
}
