// Runs to the printer and to disk under the user's eyes: dialogs, cancelling, closing message.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "frame/memory.h"
#include "frame/session_table.h"
#include "output/print_job.h"
#include "tests/support/failing_call.h"
#include "tests/support/gdi_objects.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/no_printers.h"
#include "tests/support/page_texts.h"
#include "tests/support/printer_calls.h"
#include "tests/support/report_run.h"

using namespace tessarine;

namespace {

using Calls = std::vector<std::string>;

std::string ItemText(HWND dialog, int control) {
    char text[100] = "";
    GetDlgItemTextA(dialog, control, text, sizeof text);
    return text;
}

// Five records a page. The report footer, if wanted, takes a page of its own.
struct ListForm : FormBuilder {
    explicit ListForm(bool footer = false) {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 500);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
        if (!footer) return;
        Section(SECTION_REPORT_FOOTER, 2000);
        Label(SECTION_REPORT_FOOTER, 200, 0, 500, 50, "end");
    }
};

// A run with a window of the host and, unless a test asks for silence, with dialogs.
class VisibleRun : public testing::Test {
protected:
    VisibleRun() {
        boxes.OnDialog("Printing In Progress...", [](HWND) {});
        boxes.OnDialog("Printing to File...", [](HWND) {});
    }
    int Start(char device, const FormBuilder &form = ListForm()) {
        run = std::make_unique<ReportRun>(form);
        run->params.Device = device;
        run->params.Silent = silent;
        run->params.ParentWindow = host.Get();
        const int code = run->Start();
        session = GetSessionPointer(nullptr, run->params.SessionId);
        return code;
    }
    int Feed(int records) {
        int code = 0;
        for (int record = 0; record < records && !code; ++record)
            code = run->Feed({{"NAME", "record"}});
        return code;
    }
    bool Open() const { return GetSessionPointer(nullptr, run->params.SessionId) != nullptr; }
    HWND Dialog() const { return session->run.AbortDialog; }
    BoxRecord Last() const { return boxes.Log().empty() ? BoxRecord{} : boxes.Log().back(); }

    HostWindow host;
    MessageBoxes boxes;
    std::unique_ptr<ReportRun> run;
    Session *session = nullptr;
    uint32_t silent = 0;
};

class RunToPrinter : public VisibleRun {
protected:
    PrinterCalls calls{PrinterCalls::PRETEND};
};
class RunToDisk : public VisibleRun {};

} // namespace

// ---- to the printer ----------------------------------------------------------------------------

TEST_F(RunToPrinter, JobStartsAtTheFirstRecordWithDialogAndDisabledOwner) {
    ASSERT_EQ(Start('P'), 0) << boxes.LastText();
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_TRUE(calls.Log().empty());
    ASSERT_EQ(Feed(1), 0);
    EXPECT_EQ(calls.Log(), (Calls{"SetAbortProc", "StartDocA", "StartPage"}));
    EXPECT_EQ(calls.document_size, 20);
    ASSERT_TRUE(IsWindow(Dialog()));
    EXPECT_TRUE(IsWindowVisible(Dialog()));
    EXPECT_EQ(GetWindow(Dialog(), GW_OWNER), host.Get());
    EXPECT_EQ(ItemText(Dialog(), 842), session->printer.DeviceName);
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(session->run.AbortProc, &PrintProc);
    EXPECT_EQ(session_table.PrinterContextTable[session->SessionId], session->device.ScreenDC);
    const RunState &state = session->run;
    EXPECT_EQ(session->view.ViewWidth, state.PageWidthUnits + state.LeftOrigin + state.RightOrigin);
    EXPECT_EQ(run->Finish(), 0);
}

TEST_F(RunToPrinter, PagesComeInPairsAndTheDialogFollows) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(ItemText(Dialog(), 843), "5"); // the records of the page that ended
    EXPECT_EQ(ItemText(Dialog(), 844), "1");
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(ItemText(Dialog(), 844), "2");
    calls.Before("EndDoc", [&](HDC) {
        EXPECT_EQ(ItemText(Dialog(), 843), "11");
        EXPECT_EQ(ItemText(Dialog(), 844), "3");
    });
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Log(), (Calls{"SetAbortProc", "StartDocA", "StartPage", "EndPage", "StartPage",
                                  "EndPage", "StartPage", "EndPage", "EndDoc"}));
    EXPECT_EQ(run->page_count, 3);
}

TEST_F(RunToPrinter, EndClosesTheDialogAndTellsTheRecords) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(6), 0);
    const HWND dialog = Dialog();
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(Last(), (BoxRecord{"Report Over", "6 Record(s) Printed", {IDOK}}));
    EXPECT_FALSE(Open());
}

namespace {
UINT closing_flags = 0;
int WINAPI NoteFlags(HWND, LPCSTR, LPCSTR, UINT flags) {
    closing_flags = flags;
    return IDOK;
}
} // namespace

TEST_F(RunToPrinter, ClosingMessageHasTheStopIcon) {
    ASSERT_EQ(Start('P'), 0);
    void *real = ReplaceImport("MessageBoxA", reinterpret_cast<void *>(NoteFlags));
    run->Finish();
    ReplaceImport("MessageBoxA", real);
    EXPECT_EQ(closing_flags, 16u);
}

TEST_F(RunToPrinter, SilentRunHasNeitherDialogNorMessageNorPump) {
    silent = 1;
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(3), 0);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(session_table.PrinterContextTable[session->SessionId], nullptr);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0);
    ASSERT_EQ(Feed(3), 0);
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_APP, WM_APP, PM_REMOVE));
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Log(),
              (Calls{"StartDocA", "StartPage", "EndPage", "StartPage", "EndPage", "EndDoc"}));
}

TEST_F(RunToPrinter, CancelAtAPageEndGives5AndNoMore) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(5), 0);
    const HWND dialog = Dialog();
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(calls.Count("EndPage"), 1);
    EXPECT_EQ(calls.Count("StartPage"), 1);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Count("EndPage"), 1);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}

TEST_F(RunToPrinter, CancelInTheMiddleOfAPageWaitsForItsEnd) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(1), 0);
    PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(Feed(4), 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
}

TEST_F(RunToPrinter, CancelWhileTheClosingSectionsBreakThePageGives5FromTheEnd) {
    ASSERT_EQ(Start('P', ListForm(true)), 0);
    ASSERT_EQ(Feed(4), 0);
    PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(run->Finish(), CODE_CANCELLED);
    EXPECT_TRUE(Open());
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(Open());
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
}

TEST_F(RunToPrinter, CancelAtTheLastPageEndTellsNoRecords) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(4), 0);
    PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Count("EndDoc"), 1);
}

TEST_F(RunToPrinter, DocumentThatDoesNotStartEndsTheRunAtItsFirstRecordWith10) {
    ASSERT_EQ(Start('P'), 0);
    {
        const FailingCall none("StartDocA", StartDocA, SP_ERROR);
        EXPECT_EQ(Feed(1), CODE_PRINTER);
    }
    EXPECT_EQ(Last(), (BoxRecord{"Fatal Error", "Unable to Start the Print Job", {IDOK}}));
    EXPECT_EQ(calls.Count("StartPage"), 0);
    const HWND dialog = Dialog();
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(calls.Count("EndDoc"), 0);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}

TEST_F(RunToPrinter, NoPrinterAtAllGives10) {
    const NoPrinters none;
    EXPECT_EQ(Start('P'), CODE_PRINTER);
    EXPECT_EQ(Last(), (BoxRecord{"", "Unable to Access the Current Printer!", {IDOK}}));
    EXPECT_EQ(boxes.Log().size(), 1u);
}

TEST_F(RunToPrinter, FormThatNamesAMissingPrinterRunsOnTheDefaultOne) {
    ASSERT_EQ(Start('P'), 0);
    const std::string usual = session->printer.DeviceName;
    run->Finish();
    boxes.Clear();
    ListForm form;
    std::strcpy(form.header.PrinterDevice, "No such printer");
    std::strcpy(form.header.PrinterDriver, "GONE.DRV");
    ASSERT_EQ(Start('P', form), 0);
    EXPECT_EQ(session->printer.DeviceName, usual);
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(boxes.Texts(), (Calls{"6 Record(s) Printed"}));
    EXPECT_EQ(calls.Count("EndDoc"), 1);
}

TEST_F(RunToPrinter, LandscapeOfTheFormReachesThePaper) {
    ListForm form;
    form.header.PrinterMode.PaperSize = DMPAPER_LETTER;
    form.header.PrinterMode.Orientation = DMORIENT_LANDSCAPE;
    ASSERT_EQ(Start('P', form), 0);
    EXPECT_FLOAT_EQ(session->printer.PaperWidth, 11.0F);
    EXPECT_FLOAT_EQ(session->printer.PaperHeight, 8.5F);
    const HDC device = session->device.ScreenDC;
    EXPECT_GT(GetDeviceCaps(device, HORZRES), GetDeviceCaps(device, VERTRES));
    run->Finish();
    form.header.PrinterMode.Orientation = DMORIENT_PORTRAIT;
    ASSERT_EQ(Start('P', form), 0);
    EXPECT_FLOAT_EQ(session->printer.PaperWidth, 8.5F);
    run->Finish();
}

TEST_F(RunToPrinter, UnprintableMarginIsTakenOffThePlaces) {
    ASSERT_EQ(Start('P'), 0);
    POINT offset{};
    const HDC device = session->device.ScreenDC;
    ASSERT_GT(Escape(device, GETPRINTINGOFFSET, 0, nullptr, &offset), 0);
    ASSERT_GT(offset.x, 0);
    const int x = offset.x * 250 / GetDeviceCaps(device, LOGPIXELSX);
    const int y = offset.y * 250 / GetDeviceCaps(device, LOGPIXELSY);
    EXPECT_NEAR(session->printer.PrintOffsetX, x, 1);
    EXPECT_NEAR(session->printer.PrintOffsetY, y, 1);
    EXPECT_EQ(session->run.LeftOrigin, 125 - session->printer.PrintOffsetX);
    EXPECT_EQ(session->run.TopOrigin, 125 - session->printer.PrintOffsetY);
    run->Finish();
}

// ---- to disk -----------------------------------------------------------------------------------

TEST_F(RunToDisk, DialogNamesTheFileBehindItsFoldersAndCountsPages) {
    ASSERT_EQ(Start('F'), 0);
    EXPECT_EQ(Dialog(), nullptr);
    ASSERT_EQ(Feed(1), 0);
    ASSERT_TRUE(IsWindowVisible(Dialog()));
    EXPECT_EQ(ItemText(Dialog(), 842), "OUT.FRC");
    EXPECT_EQ(ItemText(Dialog(), 844), "0");
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(ItemText(Dialog(), 844), "1");
    const HWND dialog = Dialog();
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(Last(), (BoxRecord{"Report Over", "6 Record(s) Printed", {IDOK}}));
}

TEST_F(RunToDisk, CancelAtAPageEndLeavesAValidFileOfTheFinishedPages) {
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(10), 0);
    PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    const std::string report = run->Report();
    EXPECT_EQ(+HeaderOf(report).Magic, SIGNATURE_REPORT);
    ASSERT_EQ(+HeaderOf(report).PageCount, 2);
    EXPECT_EQ(PagesOf(report).size(), 2u);
    EXPECT_EQ(PageWords(report, 0), Calls(5, "record"));
    EXPECT_EQ(PageWords(report, 1), Calls(5, "record"));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}

TEST_F(RunToDisk, CancelInTheClosingSectionsLeavesAValidFileToo) {
    ASSERT_EQ(Start('F', ListForm(true)), 0);
    ASSERT_EQ(Feed(4), 0);
    PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(run->Finish(), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(Open());
    const std::string report = run->Report();
    ASSERT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(PageWords(report, 0), Calls(4, "record"));
}

TEST_F(RunToDisk, SilentRunHasNoDialog) {
    silent = 1;
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

// ---- without records ---------------------------------------------------------------------------

TEST_F(RunToPrinter, ReportOfNoRecordsPrintsNothingAndSays0) {
    ASSERT_EQ(Start('P'), 0);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Count("StartDocA"), 0);
    EXPECT_EQ(calls.Count("EndDoc"), 0);
    EXPECT_EQ(Last(), (BoxRecord{"Report Over", "0 Record(s) Printed", {IDOK}}));
}

TEST_F(RunToDisk, ReportOfNoRecordsLeavesNoFileAndSays0UnlessSilent) {
    for (const uint32_t quiet : {0u, 1u}) {
        silent = quiet;
        boxes.Clear();
        ASSERT_EQ(Start('F'), 0);
        EXPECT_EQ(run->Finish(), 0);
        EXPECT_EQ(boxes.Texts(), quiet ? Calls{} : Calls{"0 Record(s) Printed"});
        EXPECT_EQ(GetFileAttributesA(run->params.OutputFile), INVALID_FILE_ATTRIBUTES);
    }
}

// ---- leaks -------------------------------------------------------------------------------------

// The printer itself is left out: its own work for 200 documents takes minutes.
TEST_F(RunToPrinter, TwoHundredRunsLeakNothing) {
    const ListForm form;
    const auto print = [&](bool cancelled) {
        if (const int code = Start('P', form)) return code;
        if (const int code = Feed(2)) return code;
        if (cancelled) PostMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
        return run->Finish();
    };
    for (int time = 0; time < 2; ++time) ASSERT_EQ(print(time), 0) << boxes.LastText();
    const int objects = CountGdiObjects();
    const int blocks = LiveBlocks();
    for (int time = 0; time < 200; ++time) ASSERT_EQ(print(time % 4 == 0), 0) << boxes.LastText();
    EXPECT_LE(CountGdiObjects(), objects + 1);
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(calls.Count("EndDoc"), 202);
}
