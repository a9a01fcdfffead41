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

int32_t &WordOfRun(Session *session) { return session->report.CancelState; }
int32_t &WordOfJob(Session *session) { return session->job.CancelState; }

// Cancel, or anything else that sends a command, stops what the cancel word belongs to. Where the
// page in hand is still finished the dialog reports that it has heard.
INT_PTR Serve(HWND dialog, UINT message, int32_t &(*word_of)(Session *), bool reports) {
    if (message == WM_INITDIALOG) return Open(dialog);
    Session *session = DialogSession(dialog);
    if (message != WM_COMMAND || !session) return FALSE;
    if (reports) SetDlgItemTextA(dialog, PROGRESS_DEVICE, "Cancelling..., Please Wait.");
    word_of(session) = CANCEL_STOP;
    if (reports) EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
    return TRUE;
}

} // namespace

INT_PTR CALLBACK PrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    return Serve(dialog, message, WordOfRun, false);
}

INT_PTR CALLBACK ScrPrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    return Serve(dialog, message, WordOfJob, true);
}

INT_PTR CALLBACK FilePrintAbortParam(HWND dialog, UINT message, WPARAM, LPARAM) {
    return Serve(dialog, message, WordOfRun, true);
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
