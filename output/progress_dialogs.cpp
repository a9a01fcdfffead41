#include "output/progress_dialogs.h"

#include "commands.h"
#include "frame/dialogs.h"
#include "frame/float_state.h"
#include "frame/session_table.h"

namespace tessarine {

namespace {

INT_PTR Open(HWND dialog) {
    CentreDialog(dialog);
    SetFocus(GetDlgItem(dialog, IDCANCEL));
    return FALSE; // the focus stands where it belongs
}

// The page in hand is still finished, so the dialog says that it has heard.
void TellOfCancel(HWND dialog) {
    SetDlgItemTextA(dialog, PROGRESS_DEVICE, "Cancelling..., Please Wait.");
    EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
}

// The session whose user has pressed Cancel, or anything else that sends a command; null for all
// other messages.
Session *Cancelled(HWND dialog, UINT message) {
    return message == WM_COMMAND ? DialogSession(dialog) : nullptr;
}

} // namespace

INT_PTR CALLBACK PrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = Cancelled(dialog, message);
    if (!session) return FALSE;
    session->report.CancelState = CANCEL_STOP;
    return TRUE;
}

INT_PTR CALLBACK ScrPrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = Cancelled(dialog, message);
    if (!session) return FALSE;
    session->job.CancelState = CANCEL_STOP;
    TellOfCancel(dialog);
    return TRUE;
}

INT_PTR CALLBACK FilePrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = Cancelled(dialog, message);
    if (!session) return FALSE;
    session->report.CancelState = CANCEL_STOP;
    TellOfCancel(dialog);
    return TRUE;
}

void OpenProgress(Session *session, ProgressState *progress, const char *templateName,
                  DLGPROC procedure, HWND owner, const char *device) {
    CloseProgress(progress); // that of a start that failed
    const HWND dialog = CreateDialogParamA(module_instance, templateName, owner, procedure, 0);
    progress->AbortDialog = dialog;
    progress->AbortDialogProc = procedure;
    if (!dialog) return;
    SetDialogSession(dialog, session);
    SetDlgItemTextA(dialog, PROGRESS_DEVICE, device);
    ShowNumber(*progress, PROGRESS_PAGES, 0);
    ShowNumber(*progress, PROGRESS_RECORDS, 0);
    ShowWindow(dialog, SW_SHOW);
}

void CloseProgress(ProgressState *progress) {
    if (progress->AbortDialog) DestroyWindow(progress->AbortDialog);
    progress->AbortDialog = nullptr;
    progress->AbortDialogProc = nullptr;
}

int ShownNumber(const ProgressState &progress, int control) {
    return static_cast<int>(GetDlgItemInt(progress.AbortDialog, control, nullptr, FALSE));
}

void ShowNumber(const ProgressState &progress, int control, int number) {
    SetDlgItemInt(progress.AbortDialog, control, static_cast<UINT>(number), FALSE);
}

void PumpProgress(HWND dialog, int32_t *cancelState, int code) {
    const OwnFloatState own; // windows may leave the floating point units as they like
    MSG message{};
    while (*cancelState != CANCEL_STOP && message.message != WM_QUIT &&
           PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the host's own loop
        } else if (!IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (code != 0) *cancelState = CANCEL_STOP;
    }
}

} // namespace tessarine
