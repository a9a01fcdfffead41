#include "output/page_printing.h"

#include "commands.h"
#include "device/printer.h"
#include "frame/dialogs.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "output/page_store.h"
#include "output/print_job.h"
#include "output/progress_dialogs.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

constexpr int PRINT_HELP = 3036;

bool OpenRange(HWND dialog, Session *session, LPARAM) {
    const UINT shown = static_cast<UINT>(session->pages.ShownPageIndex + 1);
    SetDlgItemInt(dialog, PRINT_FIRST_PAGE, shown, FALSE);
    SetDlgItemInt(dialog, PRINT_LAST_PAGE, shown, FALSE);
    return true;
}

void TakeRange(HWND dialog, Session *session) {
    const int first = static_cast<int>(GetDlgItemInt(dialog, PRINT_FIRST_PAGE, nullptr, TRUE));
    const int last = static_cast<int>(GetDlgItemInt(dialog, PRINT_LAST_PAGE, nullptr, TRUE));
    if (first < 1 || first > last || last > FinishedPages(session)) {
        ShowBox(dialog, "Invalid page selection.");
        SetFocus(GetDlgItem(dialog, PRINT_FIRST_PAGE));
        return;
    }
    session->job.FirstPrintPage = first;
    session->job.LastPrintPage = last;
    EndDialog(dialog, 1);
}

constexpr ControlRow range_controls[] = {{IDOK, TakeRange}};
constexpr Dialog range_dialog{PRINT_HELP, OpenRange, range_controls};

// The job has the paper of the report and not of the present printer set-up.
void TakeReportPaper(Session *session) {
    if (!session->ViewingFile) return;
    DEVMODEA *mode = session->printer.DevMode;
    const ReportFileHeader &header = session->pages.Header;
    mode->dmOrientation = static_cast<short>(header.Orientation);
    mode->dmPaperSize = static_cast<short>(header.PaperSize);
    mode->dmPaperLength = static_cast<short>(header.PaperLength);
    mode->dmPaperWidth = static_cast<short>(header.PaperWidthTenths);
    mode->dmPrintQuality = static_cast<short>(header.PrintQuality);
}

// One job at a time, also when a host sends the command to the disabled window.
class JobClaim {
public:
    explicit JobClaim(Session *session) : session_(session) {
        session->job.InHand = 1;
        session->job.CancelState = CANCEL_NONE;
    }
    JobClaim(const JobClaim &) = delete;
    JobClaim &operator=(const JobClaim &) = delete;
    ~JobClaim() { session_->job.InHand = session_->job.Printing = 0; }

private:
    Session *session_;
};

void PrintRange(Session *session, HDC device) {
    PreviewJobState &job = session->job;
    Owned<HMETAFILE, DeleteMetaFile> page;
    job.PageCount = 1;
    for (int index = job.FirstPrintPage; index <= job.LastPrintPage; ++index) {
        StartPage(device);
        RaisePending(session);
        ApplyOwnMapping(device);
        page.Reset(ReadMetaFilePage(session, index, session->pages.PrintPagePath, page.Leave()));
        if (page) PlayMetaFile(device, page.Get());
        EndPage(device);
        ScrPrintProc(device, 0); // not every printer calls its abort procedure at a page's end
        RaisePending(session);
        if (job.CancelState == CANCEL_STOP) break;
        ++job.PageCount;
    }
}

// A document under way, with its dialog unless it is silent and the window that the dialog
// disables. A failure leaves nothing of it behind.
class JobDocument {
public:
    JobDocument(Session *session, HDC device, bool silent)
        : session_(session), device_(device), silent_(silent) {
        if (silent_) return;
        ProgressState &progress = session->job.Progress;
        OpenProgress(session, &progress, "ScrPrintAbortParam", ScrPrintAbortParam, session->Window,
                     session->printer.DeviceName);
        UpdateWindow(progress.AbortDialog);
        EnableWindow(session->Window, FALSE);
    }
    JobDocument(const JobDocument &) = delete;
    JobDocument &operator=(const JobDocument &) = delete;
    ~JobDocument() {
        if (!ended_) AbortDoc(device_);
        if (silent_) return;
        EnableWindow(session_->Window, TRUE);
        CloseProgress(&session_->job.Progress);
    }
    void End() {
        ended_ = true;
        EndDoc(device_);
        RaisePending(session_);
    }

private:
    Session *session_;
    HDC device_;
    bool silent_;
    bool ended_ = false;
};

int PrintJob(Session *session, HDC device) {
    const bool silent = session->ViewingFile && session->ViewBlock.Silent;
    session->job.Printing = 1;
    NotePrinterContext(session, device);
    if (!silent) {
        session->job.Progress.AbortProc = ScrPrintProc;
        SetAbortProc(device, ScrPrintProc);
    }
    if (!StartDocument(session, device)) {
        ShowSessionBox(session, "Unable to Start the Print Job");
        return 0;
    }
    JobDocument document(session, device, silent);
    PrintRange(session, device);
    document.End();
    return 1;
}

} // namespace

int PrintPages(Session *session, int askRange) {
    if (session->job.InHand) return 1;
    const JobClaim claim(session);
    if (askRange && RunDialog(session, "PrintParam", PrintParam, 0) != 1) return 1;
    if (session->job.CancelState == CANCEL_STOP) return 1; // its run has ended under the dialog
    --session->job.FirstPrintPage;
    --session->job.LastPrintPage;
    TakeReportPaper(session);
    const OwnedContext device(CreatePrinterContext(session));
    if (!device) {
        ShowSessionBox(session, "Can not initialize printing");
        return 0;
    }
    return PrintJob(session, device.Get());
}

INT_PTR CALLBACK PrintParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(range_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
