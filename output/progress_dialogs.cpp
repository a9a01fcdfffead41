#include "output/progress_dialogs.h"

#include "frame/dialogs.h"
#include "frame/session_table.h"
#include "rep_dlg.h"

namespace tessarine {

namespace {

INT_PTR Open(HWND dialog) {
    CentreDialog(dialog);
    SetFocus(GetDlgItem(dialog, IDCANCEL));
    return FALSE; // the focus stands where it belongs
}

// The page in hand is still finished, so the dialog says that it has heard.
INT_PTR ReportingAbort(HWND dialog, UINT message) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = DialogSession(dialog);
    if (message != WM_COMMAND || !session) return FALSE;
    SetDlgItemTextA(dialog, PROGRESS_DEVICE, "Cancelling..., Please Wait.");
    session->run.CancelState = CANCEL_STOP;
    EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
    return TRUE;
}

} // namespace

INT_PTR CALLBACK PrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = DialogSession(dialog);
    if (message != WM_COMMAND || !session) return FALSE;
    session->run.CancelState = CANCEL_STOP;
    return TRUE;
}

INT_PTR CALLBACK ScrPrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    return ReportingAbort(dialog, message);
}

INT_PTR CALLBACK FilePrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    return ReportingAbort(dialog, message);
}

void OpenProgress(Session *session, const char *templateName, DLGPROC procedure, HWND owner,
                  const char *device) {
    CloseProgress(session); // that of a start that failed
    const HWND dialog = CreateDialogParamA(module_instance, templateName, owner, procedure, 0);
    session->run.AbortDialog = dialog;
    session->run.AbortDialogProc = procedure;
    if (!dialog) return;
    SetDialogSession(dialog, session);
    SetDlgItemTextA(dialog, PROGRESS_DEVICE, device);
    ShowNumber(session, PROGRESS_PAGES, 0);
    ShowNumber(session, PROGRESS_RECORDS, 0);
    ShowWindow(dialog, SW_SHOW);
}

void CloseProgress(Session *session) {
    if (session->run.AbortDialog) DestroyWindow(session->run.AbortDialog);
    session->run.AbortDialog = nullptr;
    session->run.AbortDialogProc = nullptr;
}

int ShownNumber(const Session *session, int control) {
    return static_cast<int>(GetDlgItemInt(session->run.AbortDialog, control, nullptr, FALSE));
}

void ShowNumber(const Session *session, int control, int number) {
    SetDlgItemInt(session->run.AbortDialog, control, static_cast<UINT>(number), FALSE);
}

void PumpProgress(Session *session, int code) {
    MSG message{};
    while (session->run.CancelState != CANCEL_STOP && message.message != WM_QUIT &&
           PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the host's own loop
        } else if (!IsDialogMessageA(session->run.AbortDialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (code != 0) session->run.CancelState = CANCEL_STOP;
    }
}

} // namespace tessarine
