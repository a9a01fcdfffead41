#include "output/device_choice.h"

#include "form/defaults.h"
#include "frame/dialogs.h"
#include "frame/fatal_error.h"
#include "frame/modified.h"
#include "rep_dlg.h"

namespace tessarine {

namespace {

constexpr int DEVICE_HELP = 3015;
constexpr int CANCELLED = -1;

void AddChoice(HWND dialog, const char *text) {
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

INT_PTR Open(HWND dialog, Session *session) {
    CentreDialog(dialog);
    SetDialogSession(dialog, session);
    AddChoice(dialog, "Screen");
    AddChoice(dialog, "Printer");
    if (!session->run.ViewingFile) AddChoice(dialog, "Disk File");
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETCURSEL, 0, 0);
    return TRUE;
}

INT_PTR Choose(HWND dialog, Session *session) {
    EndDialog(dialog, SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETCURSEL, 0, 0));
    SetModified(session, 1);
    return TRUE;
}

INT_PTR OnCommand(HWND dialog, Session *session, int control, int notification) {
    switch (control) {
    case LIST_CHOICE: return notification == LBN_DBLCLK ? Choose(dialog, session) : FALSE;
    case IDOK: return Choose(dialog, session);
    case IDCANCEL: return EndDialog(dialog, CANCELLED);
    case DIALOG_HELP: ShowHelp(session, DEVICE_HELP); return TRUE;
    default: return FALSE;
    }
}

} // namespace

// The session's variables have their start state only when its printer is bound.
int AskDevice(Session *session) {
    SetHelpFile(session);
    const HWND owner = session->device.Window ? nullptr : session->ParentWindow;
    return static_cast<int>(RunDialog(session, "DeviceParam", DeviceParam, 0, owner));
}

INT_PTR CALLBACK DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG)
        return Open(dialog, reinterpret_cast<DialogStart *>(lParam)->session);
    Session *session = DialogSession(dialog);
    if (message != WM_COMMAND || !session) return FALSE;
    return Guarded(session, INT_PTR{FALSE},
                   [&] { return OnCommand(dialog, session, LOWORD(wParam), HIWORD(wParam)); });
}

} // namespace tessarine
