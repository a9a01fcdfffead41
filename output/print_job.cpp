#include "output/print_job.h"

#include <cstdio>
#include <cstring>

#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/message_box.h"
#include "frame/session_table.h"
#include "output/progress_dialogs.h"
#include "rep_dlg.h"

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
    const HDC device = session->device.ScreenDC;
    OpenProgress(session, "PrintAbortParam", PrintAbortParam, session->ParentWindow,
                 session->printer.DeviceName);
    session->run.AbortProc = PrintProc;
    SetAbortProc(device, PrintProc);
    NotePrinterContext(session, device);
}

void ShowProgress(const Session *session) {
    UpdateWindow(session->run.AbortDialog);
    if (session->ParentWindow) EnableWindow(session->ParentWindow, FALSE);
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
    const bool started = StartDocument(session, session->device.ScreenDC);
    RaisePending(session);
    if (!started) FatalError(session, "Unable to Start the Print Job", CODE_PRINTER);
    StartPrinterPage(session);
    if (!silent) ShowProgress(session);
    const RunState &run = session->run;
    session->view.ViewWidth = run.PageWidthUnits + run.LeftOrigin + run.RightOrigin;
}

void StartFileRun(Session *session) {
    if (session->RunBlock.Silent) return;
    OpenProgress(session, "FilePrintAbortParam", FilePrintAbortParam, session->ParentWindow,
                 NameBehindFolders(session->pages.OutputPath));
    ShowProgress(session);
}

void EndPrinterPage(Session *session) {
    EndPage(session->device.ScreenDC);
    RaisePending(session);
    PrintProc(session->device.ScreenDC, 0);
    RaisePending(session);
}

// A new page resets the device.
void StartPrinterPage(Session *session) {
    StartPage(session->device.ScreenDC);
    RaisePending(session);
    ApplyMapping(session, session->device.ScreenDC);
}

void FilePrintPump(Session *session) {
    if (!session->run.AbortDialog) return;
    if (ShownNumber(session, PROGRESS_PAGES) != session->run.PageCount)
        ShowNumber(session, PROGRESS_PAGES, session->run.PageCount);
    PumpProgress(session, 0);
    RaisePending(session);
}

void FinishOutput(Session *session) {
    const RunState &run = session->run;
    const bool silent = session->RunBlock.Silent;
    if (run.RecordCount > 0) {
        if (!silent) PrintProc(session->device.ScreenDC, 0);
        if (run.OutputToPrinter) EndDoc(session->device.ScreenDC);
    }
    if (run.AbortDialog) {
        if (session->ParentWindow) EnableWindow(session->ParentWindow, TRUE);
        CloseProgress(session);
    }
    if (run.CancelState != CANCEL_STOP && !silent) {
        char text[40];
        std::snprintf(text, sizeof text, "%ld Record(s) Printed",
                      static_cast<long>(run.RecordCount));
        ShowBox(session->ParentWindow, text, "Report Over", MB_OK | MB_ICONSTOP);
    }
    if (run.OutputToFile && run.RecordCount == 0) DeleteFileA(session->pages.OutputPath);
}

BOOL CALLBACK PrintProc(HDC device, int code) {
    Session *session = SessionOfDevice(device);
    if (!session) return TRUE;
    return Guarded(session, BOOL{TRUE}, [&] {
        if (ShownNumber(session, PROGRESS_RECORDS) != session->run.RecordCount) {
            ShowNumber(session, PROGRESS_PAGES, session->run.PageCount);
            ShowNumber(session, PROGRESS_RECORDS, session->run.RecordCount);
        }
        if (device == session->device.ScreenDC) PumpProgress(session, code);
        return BOOL{TRUE};
    });
}

BOOL CALLBACK ScrPrintProc(HDC device, int code) {
    Session *session = SessionOfDevice(device);
    if (!session || !session->run.AbortDialog) return TRUE;
    return Guarded(session, BOOL{TRUE}, [&] {
        if (ShownNumber(session, PROGRESS_PAGES) != session->run.PageCount)
            ShowNumber(session, PROGRESS_PAGES, session->run.PageCount);
        PumpProgress(session, code);
        return BOOL{TRUE};
    });
}

} // namespace tessarine
