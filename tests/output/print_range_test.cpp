// Printing from the preview: ranges, jobs and their failures, while the run goes on and behind it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "output/page_printing.h"
#include "output/report_file.h"
#include "tests/support/failing_call.h"
#include "tests/support/help_call.h"
#include "tests/support/preview_printing.h"
#include "tests/support/system_objects.h"
#include "tests/support/tess_program.h"

using namespace tessarine;

namespace {

using Calls = std::vector<std::string>;

const Calls two_pages{"SetAbortProc", "StartDocA", "StartPage", "EndPage",
                      "StartPage",    "EndPage",   "EndDoc"};

} // namespace

// ---- the range ---------------------------------------------------------------------------------

TEST_F(PreviewPrinting, BothFieldsStartAtTheShownPage) {
    FeedToPage(4);
    session->pages.ShownPageIndex = 2;
    std::string first, last;
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        first = dialog.Text(PRINT_FIRST_PAGE);
        last = dialog.Text(PRINT_LAST_PAGE);
        dialog.Press(IDCANCEL);
    });
    const PrinterCalls calls(PrinterCalls::PRETEND);
    const FailingCall contexts("CreateDCA", CreateDCA, nullptr, EVERY_CALL);
    EXPECT_EQ(PrintPages(session, 1), 1);
    EXPECT_EQ(first, "3");
    EXPECT_EQ(last, "3");
    EXPECT_TRUE(calls.Log().empty()); // Cancel: nothing is printed
    EXPECT_EQ(contexts.Seen(), 0);
    session->pages.ShownPageIndex = 0;
}

TEST_F(PreviewPrinting, Pages3To2AreAnInvalidSelection) {
    FeedToPage(5);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    EXPECT_EQ(Ask("3", "2"), 1);
    EXPECT_EQ(Last(), (BoxRecord{"", "Invalid page selection.", {IDOK}}));
    EXPECT_EQ(focus_behind_refusal, PRINT_FIRST_PAGE);
    EXPECT_TRUE(calls.Log().empty());
}

TEST_F(PreviewPrinting, RangeBeginsAtPage1) {
    FeedToPage(5);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    for (const char *first : {"0", "-1", "", "one"}) {
        boxes.Clear();
        Ask(first, "2");
        EXPECT_EQ(Last(), (BoxRecord{"", "Invalid page selection.", {IDOK}})) << first;
    }
    EXPECT_TRUE(calls.Log().empty());
}

TEST_F(PreviewPrinting, HighestLastPageIs4WhilePage5IsUnderConstruction) {
    FeedToPage(5);
    EXPECT_EQ(FinishedPages(session), 4);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    Ask("4", "5");
    EXPECT_EQ(Last(), (BoxRecord{"", "Invalid page selection.", {IDOK}}));
    EXPECT_EQ(calls.Count("EndPage"), 0);
    boxes.Clear();
    EXPECT_EQ(Ask("2", "4"), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Count("EndPage"), 3);
}

TEST_F(PreviewPrinting, FinishedReportOffersItsLastPage) {
    FeedToPage(3);
    ASSERT_EQ(run.Finish(), 0);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    EXPECT_EQ(Ask("3", "3"), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Count("EndPage"), 1);
}

TEST_F(PreviewPrinting, DialogOfTheRangeHasItsWordsAndTheUsualButtons) {
    FeedToPage(3);
    Calls texts;
    Calls buttons;
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        texts = dialog.Texts();
        for (const int button : {IDOK, IDCANCEL, DIALOG_HELP})
            buttons.push_back(dialog.Text(button));
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(PrintPages(session, 1), 1);
    EXPECT_EQ(texts, (Calls{"Print Selected Pages", "First Page", "1", "Last Page", "1", "OK",
                            "Cancel", "&Help"}));
    EXPECT_EQ(buttons, (Calls{"OK", "Cancel", "&Help"}));
}

TEST_F(PreviewPrinting, RangeThatCannotBeAskedForPrintsNothing) {
    FeedToPage(5);
    session->job.FirstPrintPage = session->job.LastPrintPage = 1;
    const PrinterCalls calls(PrinterCalls::PRETEND);
    const FailingCall none("DialogBoxParamA", DialogBoxParamA, -1);
    EXPECT_EQ(PrintPages(session, 1), 1);
    EXPECT_TRUE(calls.Log().empty());
}

TEST_F(PreviewPrinting, HelpOfTheRangeIs3036AndTheDialogStays) {
    FeedToPage(3);
    const HelpCall help;
    bool stays = false;
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        dialog.Send(DIALOG_HELP);
        stays = !IsWindowEnabled(session->Window); // its end would enable it
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(PrintPages(session, 1), 1);
    EXPECT_TRUE(stays);
    EXPECT_EQ(help.command, 1u);
    EXPECT_EQ(help.number, 3036u);
}

// ---- the job -----------------------------------------------------------------------------------

TEST_F(PreviewPrinting, JobIsOneDocumentOfTheReportsNameWithAPairOfCallsAPage) {
    std::strcpy(session->form.Header.ReportName, "Name of the report");
    FeedToPage(4);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    EXPECT_EQ(Print(2, 3), 1);
    EXPECT_EQ(calls.Log(), two_pages);
    EXPECT_EQ(calls.document, "Name of the report");
    EXPECT_EQ(calls.document_size, 20);
}

TEST_F(PreviewPrinting, DialogCountsPagesWhileTheWindowIsDisabledUntilTheDocumentEnds) {
    FeedToPage(4);
    PrinterCalls calls(PrinterCalls::PRETEND);
    Calls shown;
    calls.Before("StartPage", [&](HDC) {
        shown.push_back(Progress().Text(PROGRESS_DEVICE) == session->printer.DeviceName
                            ? Progress().Text(PROGRESS_PAGES)
                            : "another device");
        EXPECT_FALSE(IsWindowEnabled(session->Window));
    });
    bool stands_at_end = false;
    calls.Before("EndDoc", [&](HDC) {
        stands_at_end = IsWindow(session->job.Progress.AbortDialog) &&
                        !IsWindowEnabled(session->Window) && session->report.PageCount == 4;
    });
    EXPECT_EQ(Print(1, 3), 1);
    EXPECT_EQ(shown, (Calls{"0", "1", "2"}));
    EXPECT_TRUE(stands_at_end);
    EXPECT_EQ(session->job.Progress.AbortDialog, nullptr);
    EXPECT_TRUE(IsWindowEnabled(session->Window));
}

TEST_F(PreviewPrinting, PagesAreMappedByThePrintersPixelsAndTheSessionsComeBack) {
    FeedToPage(3);
    PrinterCalls calls(PrinterCalls::PRETEND);
    const int pixels = session->drawing.LogPixelsX;
    calls.Before("EndPage", [&](HDC device) {
        SIZE extent{};
        EXPECT_EQ(GetMapMode(device), MM_ANISOTROPIC);
        GetWindowExtEx(device, &extent);
        EXPECT_EQ(extent.cx, 250);
        GetViewportExtEx(device, &extent);
        EXPECT_EQ(extent.cx, GetDeviceCaps(device, LOGPIXELSX));
    });
    EXPECT_EQ(Print(1, 2), 1);
    EXPECT_EQ(calls.Count("EndPage"), 2);
    EXPECT_EQ(session->drawing.LogPixelsX, pixels);
}

TEST_F(PreviewPrinting, ShownPageIsNotTouchedAndTheRunGoesOn) {
    FeedToPage(3);
    const HMETAFILE shown = session->pages.ShownPage;
    {
        const PrinterCalls calls(PrinterCalls::PRETEND);
        EXPECT_EQ(Print(1, 2), 1);
    }
    EXPECT_EQ(session->pages.ShownPage, shown);
    EXPECT_EQ(session->pages.ShownPageIndex, 0);
    EXPECT_EQ(session->report.PageCount, 3);
    FeedToPage(6);
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(run.page_count, 6);
}

TEST_F(PreviewPrinting, EntryOfTheJobStandsUntilTheSessionCloses) {
    FeedToPage(3);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    Print(1, 1);
    const int slot = session->SessionId;
    EXPECT_NE(session_table.PrinterContextTable[slot], nullptr);
    run.Finish();
    Send(WM_CLOSE);
    EXPECT_EQ(session_table.PrinterContextTable[slot], nullptr);
}

TEST_F(PreviewPrinting, CommandOfTheMenuAsksForTheRange) {
    FeedToPage(3);
    int asked = 0;
    boxes.OnDialog("Print Selected Pages", [&](DialogDriver dialog) {
        ++asked;
        dialog.Press(IDCANCEL);
    });
    Command(COMMAND_PRINT);
    EXPECT_EQ(asked, 1);
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(PreviewPrinting, PrinterWithoutAContextIsToldAndTheCommandDoesNothing) {
    FeedToPage(3);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    const FailingCall none("CreateDCA", CreateDCA, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(Print(1, 2), 0);
    EXPECT_EQ(Last(), (BoxRecord{"", "Can not initialize printing", {IDOK}}));
    EXPECT_TRUE(calls.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(session->Window));
}

TEST_F(PreviewPrinting, DocumentThatDoesNotStartIsToldAndTheCommandReturns) {
    FeedToPage(3);
    for (const int refusal : {SP_ERROR, 0}) {
        boxes.Clear();
        const FailingCall none("StartDocA", StartDocA, refusal);
        const FailingCall pages("StartPage", StartPage, 0, EVERY_CALL);
        EXPECT_EQ(Print(1, 2), 0);
        EXPECT_EQ(Last(), (BoxRecord{"", "Unable to Start the Print Job", {IDOK}}));
        EXPECT_EQ(pages.Seen(), 0);
        EXPECT_EQ(session->job.Progress.AbortDialog, nullptr);
        EXPECT_TRUE(IsWindowEnabled(session->Window));
        EXPECT_EQ(session->report.PageCount, 3);
    }
}

TEST_F(PreviewPrinting, JobWithoutItsDialogPrintsAndEnablesTheWindow) {
    FeedToPage(3);
    const PrinterCalls calls(PrinterCalls::PRETEND);
    const FailingCall none("CreateDialogParamA", CreateDialogParamA, nullptr);
    EXPECT_EQ(Print(1, 2), 1);
    EXPECT_EQ(none.Seen(), 1);
    EXPECT_EQ(calls.Log(), two_pages);
    EXPECT_TRUE(IsWindowEnabled(session->Window));
}

TEST_F(PreviewPrinting, PageThatCannotBeReadAbortsTheDocumentAndLeavesNothingBehind) {
    FeedToPage(4);
    PrinterCalls calls(PrinterCalls::PRETEND);
    const uint32_t table_row = session->pages.PageTable[1];
    session->pages.PageTable[1] = 0x7FFFFFF0;
    boxes.OnDialog("Print Selected Pages", [](DialogDriver dialog) {
        dialog.SetText(PRINT_FIRST_PAGE, "1");
        dialog.SetText(PRINT_LAST_PAGE, "3");
        dialog.Press(IDOK);
    });
    Command(COMMAND_PRINT);
    session->pages.PageTable[1] = table_row;
    EXPECT_EQ(calls.Count("AbortDoc"), 1);
    EXPECT_EQ(calls.Count("EndDoc"), 0);
    EXPECT_EQ(Last().title, "Fatal Error");
    EXPECT_EQ(session->job.Progress.AbortDialog, nullptr);
    EXPECT_TRUE(IsWindowEnabled(session->Window));
    EXPECT_EQ(session->report.PageCount, 4);
}

// ---- a saved report ----------------------------------------------------------------------------

TEST_F(PreviewPrinting, SavedReportHasItsOwnPaper) {
    FeedToPage(3);
    ASSERT_EQ(run.Finish(), 0);
    session->ViewingFile = 1;
    ReportFileHeader &header = session->pages.Header;
    header.Orientation = DMORIENT_LANDSCAPE;
    header.PaperSize = DMPAPER_LETTER;
    header.PaperLength = 2794;
    header.PaperWidthTenths = 2159;
    header.PrintQuality = 300;
    PrinterCalls calls(PrinterCalls::PRETEND);
    bool landscape = false;
    calls.Before("StartPage", [&](HDC device) {
        landscape = GetDeviceCaps(device, HORZRES) > GetDeviceCaps(device, VERTRES);
    });
    EXPECT_EQ(Print(1, 1), 1);
    const DEVMODEA &mode = *session->printer.DevMode;
    EXPECT_EQ(mode.dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(mode.dmPaperSize, DMPAPER_LETTER);
    EXPECT_EQ(mode.dmPaperLength, 2794);
    EXPECT_EQ(mode.dmPaperWidth, 2159);
    EXPECT_EQ(mode.dmPrintQuality, 300);
    EXPECT_TRUE(landscape);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
}

TEST_F(PreviewPrinting, RunsOwnPreviewKeepsThePrintersPaper) {
    FeedToPage(3);
    const short orientation = session->printer.DevMode->dmOrientation;
    session->pages.Header.Orientation = DMORIENT_LANDSCAPE;
    const PrinterCalls calls(PrinterCalls::PRETEND);
    EXPECT_EQ(Print(1, 1), 1);
    EXPECT_EQ(session->printer.DevMode->dmOrientation, orientation);
}

TEST_F(PreviewPrinting, SilentJobOfASavedReportHasNoDialogAndStillADocument) {
    FeedToPage(3);
    ASSERT_EQ(run.Finish(), 0);
    session->ViewingFile = 1;
    session->ViewBlock.Silent = 1;
    session->pages.Header.Orientation = DMORIENT_PORTRAIT;
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndPage", [&](HDC) {
        EXPECT_EQ(session->job.Progress.AbortDialog, nullptr);
        EXPECT_TRUE(IsWindowEnabled(session->Window));
    });
    EXPECT_EQ(Print(1, 1), 1);
    EXPECT_EQ(calls.Log(), (Calls{"StartDocA", "StartPage", "EndPage", "EndDoc"}));
}

// ---- the printer itself ------------------------------------------------------------------------

namespace {
// How many pages the document of this name has; 0 when none comes.
int PrintedPages(const std::string &title) {
    const std::string ending = title + ".ps";
    int pages = 0;
    Comes([&] {
        std::error_code ignored;
        const std::string folder = std::string("Z:") + std::getenv("TESSARINE_PRINT_DIR");
        for (const auto &file : std::filesystem::directory_iterator(folder, ignored)) {
            if (!file.path().filename().string().ends_with(ending)) continue;
            const std::string document = ReadWholeFile(file.path().string());
            for (size_t at = 0; (at = document.find("%%Page:", at)) != std::string::npos; ++at)
                ++pages;
        }
        return pages > 0;
    });
    return pages;
}
} // namespace

TEST_F(PreviewPrinting, PrinterGetsThePagesOfTheRange) {
    const std::string title = "range" + std::to_string(GetTickCount());
    std::strcpy(session->form.Header.ReportName, title.c_str());
    FeedToPage(5);
    EXPECT_EQ(Ask("2", "4"), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(PrintedPages(title), 3);
}

TEST_F(PreviewPrinting, CancelReachesTheJobWhileThePrinterEndsThePage) {
    const std::string title = "cancel" + std::to_string(GetTickCount());
    std::strcpy(session->form.Header.ReportName, title.c_str());
    FeedToPage(5);
    {
        PrinterCalls calls(PrinterCalls::REAL);
        calls.Before("EndPage", [&](HDC) {
            if (calls.Count("EndPage") == 2) Progress().Press(IDCANCEL);
        });
        EXPECT_EQ(Print(1, 4), 1);
        EXPECT_EQ(calls.Log(), two_pages);
    }
    EXPECT_EQ(PrintedPages(title), 2);
}

// ---- leaks -------------------------------------------------------------------------------------

namespace {
// The number that the next handle gets; the lowest free one is taken first.
uintptr_t NextHandle() {
    const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(event);
    return reinterpret_cast<uintptr_t>(event);
}
} // namespace

// The printer itself is left out after StartDoc: its own work for 200 documents takes minutes.
TEST_F(PreviewPrinting, TwoHundredJobsLeakNothing) {
    FeedToPage(4);
    PrinterCalls calls(PrinterCalls::PRETEND);
    calls.Before("EndPage", [&](HDC) { // every fourth job is cancelled, at its first page
        if (calls.Count("StartDocA") % 4 == 0) Progress().Press(IDCANCEL);
    });
    Print(1, 2);
    const int objects = CountGdiObjects();
    const int user_objects = CountUserObjects();
    const uintptr_t handle = NextHandle();
    const SIZE_T settings = GlobalSize(session->printer.DevModeMemory);
    for (int job = 0; job < 200; ++job) ASSERT_EQ(Print(1, 2), 1);
    EXPECT_LE(CountGdiObjects(), objects + 1);
    EXPECT_LE(CountUserObjects(), user_objects);
    EXPECT_LE(NextHandle(), handle + 100); // a file left open at each would count 800
    EXPECT_EQ(GlobalSize(session->printer.DevModeMemory), settings);
    EXPECT_EQ(calls.Count("EndDoc"), 201);
}
