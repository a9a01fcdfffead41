// Runs to the printer under the user's eyes: dialogs, cancelling, closing message.
#include <algorithm>
#include <cstring>

#include "commands.h"
#include "device/device_names.h"
#include "device/printer.h"
#include "frame/memory.h"
#include "output/print_job.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "run/set_up.h"
#include "tests/support/failing_call.h"
#include "tests/support/no_printers.h"
#include "tests/support/printer_calls.h"
#include "tests/support/system_objects.h"
#include "tests/support/visible_run.h"

using namespace tessarine;

namespace {

using Calls = std::vector<std::string>;

class RunToPrinter : public VisibleRun {
protected:
    PrinterCalls calls{PrinterCalls::PRETEND};
};

} // namespace

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
    EXPECT_EQ(Dialog().Text(PROGRESS_DEVICE), session->printer.DeviceName);
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(session->progress.AbortProc, &PrintProc);
    EXPECT_EQ(session_table.PrinterContextTable[session->SessionId], session->drawing.ScreenDC);
    const RunState &state = session->run;
    EXPECT_EQ(session->view.ViewWidth,
              session->report.PageWidthUnits + state.LeftOrigin + state.RightOrigin);
    EXPECT_EQ(run->Finish(), 0);
}

namespace {
std::vector<std::pair<HDC, std::string>> contexts; // with the printer that each was asked of
decltype(&CreateDCA) real_create;
HDC WINAPI NoteContext(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA *mode) {
    // The settings tell the run's own printer from the host's, which is the same one here.
    const HDC context = real_create(driver, device, port, mode);
    contexts.emplace_back(context, mode && mode->dmCopies == 9 ? "host's" : "form's");
    return context;
}
} // namespace

TEST_F(RunToPrinter, PrinterThatTheHostGivesIsTheOneThatPrints) {
    ASSERT_EQ(Start('P'), 0) << boxes.LastText();
    const HGLOBAL names = GetDevNames(session);
    const HGLOBAL mode = GetDevMode(session);
    EXPECT_EQ(run->Finish(), 0);
    static_cast<DEVMODEA *>(GlobalLock(mode))->dmCopies = 9;
    GlobalUnlock(mode);
    run = std::make_unique<ReportRun>(ListForm());
    run->params.Device = 'P';
    contexts.clear();
    real_create = reinterpret_cast<decltype(&CreateDCA)>(
        ReplaceImport("CreateDCA", reinterpret_cast<void *>(NoteContext)));
    const int objects = CountGdiObjects();
    EXPECT_EQ(RepInit(&run->params, 0, names, mode), 0) << boxes.LastText();
    ReplaceImport("CreateDCA", reinterpret_cast<void *>(real_create));
    session = GetSessionPointer(nullptr, run->params.SessionId);
    const HDC device = session->drawing.OutputDevice;
    // A deleted context's number may be given out again, so the last one of it counts.
    const auto noted = std::find_if(contexts.rbegin(), contexts.rend(),
                                    [&](const auto &context) { return context.first == device; });
    ASSERT_NE(noted, contexts.rend());
    EXPECT_EQ(noted->second, "host's");
    EXPECT_EQ(GetMapMode(device), MM_ANISOTROPIC);
    std::vector<HDC> used;
    calls.Before("StartPage", [&](HDC page) { used.push_back(page); });
    EXPECT_EQ(run->Feed({{"NAME", "record"}}), 0);
    EXPECT_EQ(used, std::vector<HDC>{device});
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_LE(CountGdiObjects(), objects);
    GlobalFree(names);
    GlobalFree(mode);
}

TEST_F(RunToPrinter, PagesComeInPairsAndTheDialogFollows) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(Dialog().Text(PROGRESS_RECORDS), "5"); // the records of the page that ended
    EXPECT_EQ(Dialog().Text(PROGRESS_PAGES), "1");
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(Dialog().Text(PROGRESS_PAGES), "2");
    calls.Before("EndDoc", [&](HDC) {
        EXPECT_EQ(Dialog().Text(PROGRESS_RECORDS), "11");
        EXPECT_EQ(Dialog().Text(PROGRESS_PAGES), "3");
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
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(Feed(4), 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
}

TEST_F(RunToPrinter, CancelThatTheHostsOwnLoopHandsOutStopsAtThePageEnd) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(2), 0);
    Dialog().Send(IDCANCEL);
    EXPECT_EQ(Feed(3), 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(calls.Count("EndPage"), 1);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Count("StartPage"), 1);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
}

TEST_F(RunToPrinter, CancelBeforeTheEndOfTheDataTellsNoRecords) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(2), 0);
    Dialog().Send(IDCANCEL);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Count("EndPage"), 0);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}

TEST_F(RunToPrinter, CancelWhileTheClosingSectionsBreakThePageGives5FromTheEnd) {
    ASSERT_EQ(Start('P', ListForm(true)), 0);
    ASSERT_EQ(Feed(4), 0);
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(run->Finish(), CODE_CANCELLED);
    EXPECT_FALSE(Open());
    EXPECT_EQ(run->Finish(), CODE_NO_SESSION);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
}

TEST_F(RunToPrinter, CancelAtTheLastPageEndTellsNoRecords) {
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(4), 0);
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(calls.Count("EndDoc"), 1);
}

TEST_F(RunToPrinter, CancelAtTheEndOfATitlePageEndsTheDocumentThoughNoRecordIsPrinted) {
    ASSERT_EQ(Start('P', TitlePage()), 0);
    calls.Before("StartPage", [&](HDC) { Dialog().Press(IDCANCEL); });
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(session->report.RecordCount, 0);
    EXPECT_EQ(calls.Count("EndPage"), 1);
    const HWND dialog = Dialog();
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_TRUE(boxes.Log().empty());
}

// A printer may call the abort procedure ahead of its pages too.
TEST_F(RunToPrinter, CancelWhileTheDocumentOrAPageStartsGives5) {
    std::string at;
    int page = 0;
    for (const char *name : {"StartDocA", "StartPage"})
        calls.Before(name, [&, name](HDC device) {
            if (at != name || session->report.PageCount != page) return;
            Dialog().Press(IDCANCEL);
            PrintProc(device, 0);
        });
    // The second page starts before it is counted.
    for (const auto &[name, records] :
         {std::pair{"StartDocA", 0}, {"StartPage", 0}, {"StartPage", 5}}) {
        ASSERT_EQ(Start('P'), 0);
        ASSERT_EQ(Feed(records), 0);
        const int ends = calls.Count("EndPage");
        const int documents = calls.Count("EndDoc");
        at = name;
        page = 1;
        EXPECT_EQ(Feed(1), CODE_CANCELLED) << name;
        page = 0;
        EXPECT_EQ(run->Finish(), 0) << name;
        EXPECT_EQ(calls.Count("EndPage") - ends, records ? 1 : 0) << name;
        EXPECT_EQ(calls.Count("EndDoc") - documents, 1) << name;
        EXPECT_TRUE(IsWindowEnabled(host.Get())) << name;
        EXPECT_TRUE(boxes.Log().empty()) << name;
        EXPECT_FALSE(Open()) << name;
    }
}

TEST_F(RunToPrinter, DocumentThatDoesNotStartEndsTheRunAtItsFirstRecordWith10) {
    for (const int refusal : {SP_ERROR, 0}) {
        ASSERT_EQ(Start('P'), 0);
        {
            const FailingCall none("StartDocA", StartDocA, refusal);
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
}

TEST_F(RunToPrinter, RecordBehindADocumentThatDidNotStartHasOneDialogAgain) {
    ASSERT_EQ(Start('P'), 0);
    {
        const FailingCall none("StartDocA", StartDocA, SP_ERROR);
        EXPECT_EQ(Feed(1), CODE_PRINTER);
    }
    const HWND first = Dialog();
    ASSERT_TRUE(IsWindow(first));
    EXPECT_EQ(Feed(1), 0);
    EXPECT_TRUE(IsWindow(Dialog()));
    EXPECT_FALSE(first != Dialog() && IsWindow(first));
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(calls.Count("EndDoc"), 1);
}

TEST_F(RunToPrinter, RunWhoseDialogCannotBeMadePrintsAndEnablesItsOwner) {
    ASSERT_EQ(Start('P'), 0);
    {
        const FailingCall none("CreateDialogParamA", CreateDialogParamA, nullptr);
        ASSERT_EQ(Feed(1), 0);
        EXPECT_EQ(none.Seen(), 1);
    }
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(boxes.Texts(), (Calls{"1 Record(s) Printed"}));
}

TEST_F(RunToPrinter, RunWithoutAnOwnerHasItsDialogAllTheSame) {
    owner = nullptr;
    ASSERT_EQ(Start('P'), 0);
    ASSERT_EQ(Feed(1), 0);
    EXPECT_TRUE(IsWindowVisible(Dialog()));
    EXPECT_EQ(GetWindow(Dialog(), GW_OWNER), nullptr);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(boxes.Texts(), (Calls{"1 Record(s) Printed"}));
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
    const HDC device = session->drawing.ScreenDC;
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
    const HDC device = session->drawing.ScreenDC;
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

// ---- without records ---------------------------------------------------------------------------

TEST_F(RunToPrinter, ReportOfNoRecordsPrintsNothingAndSays0UnlessSilent) {
    for (const uint32_t quiet : {0u, 1u}) {
        silent = quiet;
        boxes.Clear();
        ASSERT_EQ(Start('P'), 0);
        EXPECT_EQ(run->Finish(), 0);
        EXPECT_EQ(calls.Log(), Calls(quiet + 1, "EndPage")); // of no document
        EXPECT_EQ(Last(),
                  quiet ? BoxRecord{} : (BoxRecord{"Report Over", "0 Record(s) Printed", {IDOK}}));
    }
}

// ---- leaks -------------------------------------------------------------------------------------

// The printer itself is left out: its own work for 200 documents takes minutes.
TEST_F(RunToPrinter, TwoHundredRunsLeakNothing) {
    const ListForm form;
    const auto print = [&](bool cancelled) {
        if (const int code = Start('P', form)) return code;
        if (const int code = Feed(2)) return code;
        if (cancelled) Dialog().Press(IDCANCEL);
        return run->Finish();
    };
    for (int time = 0; time < 2; ++time) ASSERT_EQ(print(time), 0) << boxes.LastText();
    const int objects = CountGdiObjects();
    const int user_objects = CountUserObjects();
    const int blocks = LiveBlocks();
    for (int time = 0; time < 200; ++time) ASSERT_EQ(print(time % 4 == 0), 0) << boxes.LastText();
    EXPECT_LE(CountGdiObjects(), objects + 1);
    EXPECT_LE(CountUserObjects(), user_objects);
    EXPECT_EQ(LiveBlocks(), blocks);
    EXPECT_EQ(calls.Count("EndDoc"), 202);
}
