#include "output/print_job.h"

#include <cstdio>
#include <cstring>

#include "commands.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/message_box.h"
#include "frame/session_table.h"
#include "output/progress_dialogs.h"

namespace tessarine {

namespace {

// An abort procedure is given only a device; the table leads it back to its session.
Session *SessionOfDevice(HDC device) {
    for (int slot = 0; slot < session_table.SessionHighMark; ++slot)
        if (device && session_table.PrinterContextTable[slot] == device)
            return session_table.SessionTable[slot];
    return nullptr;
}

void OpenPrinterProgress(Session *session) {
    const HDC device = session->drawing.OutputDevice;
    OpenProgress(session, &session->progress, "PrintAbortParam", PrintAbortParam,
                 session->ParentWindow, session->printer.DeviceName);
    session->progress.AbortProc = PrintProc;
    SetAbortProc(device, PrintProc);
    NotePrinterContext(session, device);
}

// The printer may call its abort procedure ahead of a page too, and a page's end passes over a run
// that has been cancelled before.
void StopIfCancelled(Session *session) {
    if (session->report.CancelState == CANCEL_STOP) FatalError(session, "", CODE_CANCELLED);
}

void ShowProgress(const Session *session) {
    UpdateWindow(session->progress.AbortDialog);
    if (session->ParentWindow) EnableWindow(session->ParentWindow, FALSE);
}

// A run that its first record ended has a document as well.
void EndDocument(Session *session) {
    session->report.DocumentOpen = 0;
    EndDoc(session->drawing.OutputDevice);
}

void ShowPages(const ProgressState &progress, int pages) {
    if (ShownNumber(progress, PROGRESS_PAGES) != pages) ShowNumber(progress, PROGRESS_PAGES, pages);
}

void ReportCount(const Session *session) {
    char text[40];
    std::snprintf(text, sizeof text, "%ld Record(s) Printed",
                  static_cast<long>(session->report.RecordCount));
    ShowBox(session->ParentWindow, text, "Report Over", MB_OK | MB_ICONSTOP);
}

const char *NameBehindFolders(const char *path) {
    const char *last = std::strrchr(path, '\\');
    return last ? last + 1 : path;
}

} // namespace

bool StartDocument(const Session *session, HDC device) {
    DOCINFOA document{};
    document.cbSize = sizeof document;
    static_assert(sizeof document == 20);
    document.lpszDocName = session->form.Header.ReportName;
    return StartDocA(device, &document) > 0;
}

void StartPrinterRun(Session *session) {
    const bool silent = session->RunBlock.Silent;
    if (!silent) OpenPrinterProgress(session);
    const bool started = StartDocument(session, session->drawing.OutputDevice);
    RaisePending(session);
    if (!started) FatalError(session, "Unable to Start the Print Job", CODE_PRINTER);
    session->report.DocumentOpen = 1;
    StopIfCancelled(session);
    StartPrinterPage(session);
    if (!silent) ShowProgress(session);
    const RunState &run = session->run;
    session->view.ViewWidth = session->report.PageWidthUnits + run.LeftOrigin + run.RightOrigin;
}

void StartFileRun(Session *session) {
    if (session->RunBlock.Silent) return;
    OpenProgress(session, &session->progress, "FilePrintAbortParam", FilePrintAbortParam,
                 session->ParentWindow, NameBehindFolders(session->pages.OutputPath));
    ShowProgress(session);
}

void EndPrinterPage(Session *session) {
    EndPage(session->drawing.OutputDevice);
    RaisePending(session);
    PrintProc(session->drawing.OutputDevice, 0);
    RaisePending(session);
}

// A new page resets the device.
void StartPrinterPage(Session *session) {
    StartPage(session->drawing.OutputDevice);
    RaisePending(session);
    ApplyMapping(session, session->drawing.OutputDevice);
    StopIfCancelled(session);
}

void FilePrintPump(Session *session) {
    const ProgressState &progress = session->progress;
    if (!progress.AbortDialog) return;
    ShowPages(progress, session->report.PageCount);
    PumpProgress(progress.AbortDialog, &session->report.CancelState, 0);
    RaisePending(session);
}

void FinishOutput(Session *session, bool whole) {
    const bool silent = session->RunBlock.Silent;
    if (session->report.RecordCount > 0 && !silent) PrintProc(session->drawing.OutputDevice, 0);
    if (session->report.DocumentOpen) EndDocument(session);
    if (session->progress.AbortDialogProc) {
        if (session->ParentWindow) EnableWindow(session->ParentWindow, TRUE);
        CloseProgress(&session->progress);
    }
    if (whole && session->report.CancelState != CANCEL_STOP && !silent) ReportCount(session);
    if (session->OutputToFile && session->report.RecordCount == 0)
        DeleteFileA(session->pages.OutputPath);
}

BOOL CALLBACK PrintProc(HDC device, int code) {
    Session *session = SessionOfDevice(device);
    if (!session) return TRUE;
    return Guarded(session, BOOL{TRUE}, [&] {
        const ProgressState &progress = session->progress;
        if (ShownNumber(progress, PROGRESS_RECORDS) != session->report.RecordCount) {
            ShowNumber(progress, PROGRESS_PAGES, session->report.PageCount);
            ShowNumber(progress, PROGRESS_RECORDS, session->report.RecordCount);
        }
        if (device == session->drawing.OutputDevice)
            PumpProgress(progress.AbortDialog, &session->report.CancelState, code);
        return BOOL{TRUE};
    });
}

BOOL CALLBACK ScrPrintProc(HDC device, int code) {
    Session *session = SessionOfDevice(device);
    if (!session || !session->job.Progress.AbortDialog) return TRUE;
    return Guarded(session, BOOL{TRUE}, [&] {
        PreviewJobState &job = session->job;
        ShowPages(job.Progress, job.PageCount);
        PumpProgress(job.Progress.AbortDialog, &job.CancelState, code);
        return BOOL{TRUE};
    });
}

} // namespace tessarine
