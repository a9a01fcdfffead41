// The progress dialogs, and the routines that give messages their turn behind them.
#include "output/progress_dialogs.h"

#include <gtest/gtest.h>

#include <vector>

#include "commands.h"
#include "frame/session_table.h"
#include "output/print_job.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"
#include "tests/support/window_driver.h"

using namespace tessarine;

namespace {

struct DialogRow {
    const char *name;
    DLGPROC procedure;
};
constexpr DialogRow dialogs[] = {{"PrintAbortParam", PrintAbortParam},
                                 {"ScrPrintAbortParam", ScrPrintAbortParam},
                                 {"FilePrintAbortParam", FilePrintAbortParam}};

// A session that has a progress dialog, with a device of its own that no printer stands behind.
class Progress : public testing::Test {
protected:
    Progress() {
        session->report.CancelState = session->job.CancelState = CANCEL_NONE;
        session->drawing.ScreenDC = CreateCompatibleDC(nullptr);
    }
    ~Progress() override {
        CloseBoth();
        DeleteDC(session->drawing.ScreenDC);
    }
    void CloseBoth() {
        CloseProgress(&session->progress);
        CloseProgress(&session->job.Progress);
    }
    DialogDriver Show(const char *name, DLGPROC procedure) {
        CloseBoth();
        const bool of_job = procedure == ScrPrintAbortParam;
        ProgressState *progress = of_job ? &session->job.Progress : &session->progress;
        OpenProgress(session, progress, name, procedure, nullptr, "Laser");
        return progress->AbortDialog;
    }
    int32_t &CancelWordOf(DLGPROC procedure) {
        return procedure == ScrPrintAbortParam ? session->job.CancelState
                                               : session->report.CancelState;
    }
    DialogDriver ShowPrinterRun() {
        NotePrinterContext(session, session->drawing.ScreenDC);
        return Show("PrintAbortParam", PrintAbortParam);
    }
    DialogDriver ShowPreviewJob() {
        NotePrinterContext(session, session->drawing.ScreenDC);
        return Show("ScrPrintAbortParam", ScrPrintAbortParam);
    }
    DialogDriver ShowFileRun() { return Show("FilePrintAbortParam", FilePrintAbortParam); }
    HDC Device() { return session->drawing.ScreenDC; }
    // Whether a message that was posted to this thread still waits.
    static bool Waits() {
        MSG message;
        return PeekMessageA(&message, nullptr, WM_APP, WM_APP, PM_NOREMOVE);
    }
    static void PostOne() { PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0); }

    BareSession session;
};

} // namespace

// ---- what they show ----------------------------------------------------------------------------

TEST_F(Progress, DialogOfARunToThePrinterShowsPrinterPagesAndRecords) {
    EXPECT_EQ(ShowPrinterRun().Texts(),
              (std::vector<std::string>{"Printing In Progress...", "Printer: ", "Laser",
                                        "Number of Pages Printed:", "0",
                                        "Number of Records Printed:", "0", "Cancel"}));
}

TEST_F(Progress, DialogOfAPreviewsJobShowsPrinterAndPages) {
    const DialogDriver dialog = ShowPreviewJob();
    EXPECT_EQ(dialog.Texts(),
              (std::vector<std::string>{"Printing In Progress...", "Printer: ", "Laser",
                                        "Number of Pages Printed:", "0", "Cancel"}));
    EXPECT_EQ(dialog.Control(PROGRESS_RECORDS), nullptr);
}

TEST_F(Progress, DialogOfARunToDiskShowsFileAndPages) {
    const DialogDriver dialog = ShowFileRun();
    EXPECT_EQ(dialog.Texts(),
              (std::vector<std::string>{"Printing to File...", "File Name:", "Laser",
                                        "Number of Pages Printed:", "0", "Cancel"}));
    EXPECT_EQ(dialog.Control(PROGRESS_RECORDS), nullptr);
}

TEST_F(Progress, ControlsHaveTheNumbersThatHostsKnow) {
    const DialogDriver dialog = ShowPrinterRun();
    EXPECT_EQ(dialog.Text(842), "Laser");
    EXPECT_EQ(dialog.Text(843), "0");
    EXPECT_EQ(dialog.Text(844), "0");
    EXPECT_EQ(dialog.Text(IDCANCEL), "Cancel");
}

TEST_F(Progress, EachDialogStandsInTheMiddleWithTheFocusOnCancel) {
    for (const auto &[name, procedure] : dialogs) {
        const DialogDriver dialog = Show(name, procedure);
        RECT place;
        GetWindowRect(dialog, &place);
        const int width = place.right - place.left;
        EXPECT_EQ(place.left, GetSystemMetrics(SM_CXSCREEN) / 2 - width / 2) << name;
        EXPECT_TRUE(IsWindowVisible(dialog)) << name;
        EXPECT_EQ(GetFocus(), dialog.Control(IDCANCEL)) << name;
    }
}

TEST_F(Progress, NamesShowTheirAmpersands) {
    for (const auto &[name, procedure] : dialogs) {
        const HWND shown = Show(name, procedure).Control(PROGRESS_DEVICE);
        EXPECT_TRUE(GetWindowLongA(shown, GWL_STYLE) & SS_NOPREFIX) << name;
    }
}

// ---- Cancel ------------------------------------------------------------------------------------

TEST_F(Progress, CancelInTheDialogOfARunToThePrinterChangesNothingVisible) {
    const DialogDriver dialog = ShowPrinterRun();
    const auto before = dialog.Texts();
    dialog.Send(IDCANCEL);
    EXPECT_EQ(session->report.CancelState, CANCEL_STOP);
    EXPECT_EQ(dialog.Texts(), before);
    EXPECT_TRUE(dialog.Enabled(IDCANCEL));
}

TEST_F(Progress, CancelOfAPreviewsJobGreysTheButtonSaysPleaseWaitAndLeavesTheRun) {
    const DialogDriver dialog = ShowPreviewJob();
    dialog.Send(IDCANCEL);
    EXPECT_EQ(session->job.CancelState, CANCEL_STOP);
    EXPECT_EQ(session->report.CancelState, CANCEL_NONE);
    EXPECT_EQ(dialog.Text(PROGRESS_DEVICE), "Cancelling..., Please Wait.");
    EXPECT_FALSE(dialog.Enabled(IDCANCEL));
}

TEST_F(Progress, CancelOfARunToDiskGreysTheButtonAndSaysPleaseWait) {
    const DialogDriver dialog = ShowFileRun();
    dialog.Send(IDCANCEL);
    EXPECT_EQ(session->report.CancelState, CANCEL_STOP);
    EXPECT_EQ(dialog.Text(PROGRESS_DEVICE), "Cancelling..., Please Wait.");
    EXPECT_FALSE(dialog.Enabled(IDCANCEL));
}

TEST_F(Progress, AnyCommandCancels) {
    for (const auto &[name, procedure] : dialogs) {
        Show(name, procedure).Send(12345);
        EXPECT_EQ(CancelWordOf(procedure), CANCEL_STOP) << name;
    }
}

// ---- the abort procedure of a run to the printer -----------------------------------------------

TEST_F(Progress, PrinterRunRefreshesPagesOnlyTogetherWithRecords) {
    const DialogDriver dialog = ShowPrinterRun();
    session->report.PageCount = 3;
    EXPECT_EQ(PrintProc(Device(), 0), 1);
    EXPECT_EQ(dialog.Text(PROGRESS_PAGES), "0");
    session->report.RecordCount = 7;
    EXPECT_EQ(PrintProc(Device(), 0), 1);
    EXPECT_EQ(dialog.Text(PROGRESS_PAGES), "3");
    EXPECT_EQ(dialog.Text(PROGRESS_RECORDS), "7");
}

TEST_F(Progress, DeviceOfNoJobIsLeftAlone) {
    const DialogDriver dialog = ShowPrinterRun();
    session->report.RecordCount = 7;
    PostOne();
    const HDC other = CreateCompatibleDC(nullptr);
    for (const HDC device : {other, HDC{}}) {
        EXPECT_EQ(PrintProc(device, 0), 1);
        EXPECT_EQ(ScrPrintProc(device, 0), 1);
    }
    DeleteDC(other);
    EXPECT_EQ(dialog.Text(PROGRESS_RECORDS), "0");
    EXPECT_TRUE(Waits());
    ServeMessages();
}

TEST_F(Progress, PrinterRunPumpsForItsOutputDeviceAlone) {
    ShowPrinterRun();
    const HDC other = CreateCompatibleDC(nullptr);
    NotePrinterContext(session, other);
    PostOne();
    EXPECT_EQ(PrintProc(other, 0), 1);
    EXPECT_TRUE(Waits());
    NotePrinterContext(session, Device());
    EXPECT_EQ(PrintProc(Device(), 0), 1);
    EXPECT_FALSE(Waits());
    DeleteDC(other);
}

TEST_F(Progress, PumpHandsCancelToTheDialogAndThenStops) {
    const DialogDriver dialog = ShowPrinterRun();
    ServeMessages();
    dialog.Press(IDCANCEL);
    PostOne();
    PrintProc(Device(), 0);
    EXPECT_EQ(session->report.CancelState, CANCEL_STOP);
    EXPECT_TRUE(Waits());
    ServeMessages();
}

TEST_F(Progress, KeysReachTheDialog) {
    const DialogDriver dialog = ShowPrinterRun();
    ServeMessages();
    PostMessageA(dialog.Control(IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 0);
    PrintProc(Device(), 0);
    EXPECT_EQ(session->report.CancelState, CANCEL_STOP);
}

TEST_F(Progress, SpoolersErrorCancelsAfterOneMessage) {
    const auto cancels = [&](ABORTPROC procedure, const int32_t &cancel_word) {
        ServeMessages();
        EXPECT_EQ(procedure(Device(), SP_ERROR), 1);
        EXPECT_EQ(cancel_word, CANCEL_NONE); // there was no message
        PostOne();
        PostOne();
        EXPECT_EQ(procedure(Device(), SP_ERROR), 1);
        EXPECT_EQ(cancel_word, CANCEL_STOP);
        EXPECT_TRUE(Waits());
        ServeMessages();
    };
    ShowPrinterRun();
    cancels(PrintProc, session->report.CancelState);
    ShowPreviewJob();
    cancels(ScrPrintProc, session->job.CancelState);
}

TEST_F(Progress, QuitIsLeftToTheHostsOwnLoop) {
    ShowPrinterRun();
    ServeMessages();
    PostQuitMessage(7);
    EXPECT_EQ(PrintProc(Device(), 0), 1);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
    PostQuitMessage(7);
    EXPECT_EQ(PrintProc(Device(), SP_ERROR), 1); // an error cancels behind this message too
    EXPECT_EQ(session->report.CancelState, CANCEL_STOP);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

// ---- the abort procedure of a preview's job ----------------------------------------------------

TEST_F(Progress, PreviewsJobRefreshesItsPagesAndPumpsForAnyDeviceOfIts) {
    const DialogDriver dialog = ShowPreviewJob();
    const HDC other = CreateCompatibleDC(nullptr);
    NotePrinterContext(session, other);
    session->job.PageCount = 2;
    PostOne();
    EXPECT_EQ(ScrPrintProc(other, 0), 1);
    EXPECT_EQ(dialog.Text(PROGRESS_PAGES), "2");
    EXPECT_FALSE(Waits());
    DeleteDC(other);
}

TEST_F(Progress, SilentPreviewsJobHasNoPump) {
    NotePrinterContext(session, Device());
    PostOne();
    EXPECT_EQ(ScrPrintProc(Device(), 0), 1);
    EXPECT_TRUE(Waits());
    ServeMessages();
}

// ---- the pump of a run to disk -----------------------------------------------------------------

TEST_F(Progress, FilePumpRefreshesPagesAndHandsOutMessages) {
    const DialogDriver dialog = ShowFileRun();
    session->report.PageCount = 4;
    PostOne();
    FilePrintPump(session);
    EXPECT_EQ(dialog.Text(PROGRESS_PAGES), "4");
    EXPECT_FALSE(Waits());
}

TEST_F(Progress, FilePumpWithoutADialogLeavesMessagesAlone) {
    PostOne();
    FilePrintPump(session);
    EXPECT_TRUE(Waits());
    ServeMessages();
}

TEST_F(Progress, FilePumpOfACancelledRunLeavesMessagesAlone) {
    ShowFileRun();
    ServeMessages();
    session->report.CancelState = CANCEL_STOP;
    PostOne();
    FilePrintPump(session);
    EXPECT_TRUE(Waits());
    ServeMessages();
}

// ---- which session a device belongs to ---------------------------------------------------------

TEST_F(Progress, DeviceLeadsToTheSessionThatNotedItLast) {
    ShowPrinterRun();
    BareSession other;
    NotePrinterContext(other, Device()); // the first job's handle, given out again
    EXPECT_EQ(session_table.PrinterContextTable[session->SessionId], nullptr);
    EXPECT_EQ(session_table.PrinterContextTable[other->SessionId], Device());
}

TEST(PrinterContextTable, ClosingOfTheSessionClearsItsEntry) {
    int slot = -1;
    {
        BareSession session;
        slot = session->SessionId;
        NotePrinterContext(session, reinterpret_cast<HDC>(1));
        EXPECT_NE(session_table.PrinterContextTable[slot], nullptr);
    }
    EXPECT_EQ(session_table.PrinterContextTable[slot], nullptr);
}
