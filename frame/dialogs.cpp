#include "frame/dialogs.h"

#include <cstring>

#include "commands.h"
#include "frame/fatal_error.h"
#include "frame/message_box.h"
#include "frame/session_table.h"
#include "frame/text_numbers.h"

namespace tessarine {

INT_PTR RunDialog(Session *session, const char *templateName, DLGPROC procedure, LPARAM extra,
                  HWND owner) {
    DialogStart start{session, extra};
    const HWND parent = owner ? owner : session->Window;
    const INT_PTR result = DialogBoxParamA(module_instance, templateName, parent, procedure,
                                           reinterpret_cast<LPARAM>(&start));
    RaisePending(session);
    if (session->SessionKind == KIND_DESIGNER) SetFocus(parent);
    return result;
}

namespace {

// One axis of a dialog's place: centred, and on the screen.
int Centred(int low, int high, int size, int screen) {
    const int position = (low + high) / 2 - size / 2;
    if (position < 0) return 0;
    return position + size > screen ? screen - size : position;
}

} // namespace

void CentreDialog(HWND dialog) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    RECT around{0, 0, width, height};
    if (const HWND parent = GetParent(dialog)) GetWindowRect(parent, &around);
    RECT own{};
    GetWindowRect(dialog, &own);
    SetWindowPos(dialog, nullptr, Centred(around.left, around.right, own.right - own.left, width),
                 Centred(around.top, around.bottom, own.bottom - own.top, height), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
}

namespace {

// The dialog's part runs guarded; one that failed has no more to say.
template <typename Body>
INT_PTR Serve(const Dialog &served, HWND dialog, Session *session, Body body) {
    constexpr INT_PTR FAILED = -1;
    const INT_PTR handled = Guarded(session, FAILED, body);
    if (handled != FAILED) return handled;
    EndDialog(dialog, served.CancelResult);
    return TRUE;
}

// False, and the dialog ends as cancelled, when its session has gone under it or the row that it
// works on isn't there.
bool CanServe(const Dialog &served, HWND dialog, const Session *session) {
    const bool stands = SessionStands(session) && (!served.RowStands || served.RowStands(session));
    if (!stands) EndDialog(dialog, served.CancelResult);
    return stands;
}

INT_PTR OpenDialog(const Dialog &served, HWND dialog, const DialogStart &start) {
    CentreDialog(dialog);
    if (!CanServe(served, dialog, start.session)) return TRUE;
    SetDialogSession(dialog, start.session);
    return Serve(served, dialog, start.session,
                 [&] { return INT_PTR{served.Open(dialog, start.session, start.extra)}; });
}

INT_PTR OnControl(const Dialog &served, HWND dialog, Session *session, int control,
                  int notification) {
    for (const ControlRow &row : served.Controls) {
        if (row.Control != control || row.Notification != notification) continue;
        row.Act(dialog, session);
        return TRUE;
    }
    if (control == IDCANCEL)
        EndDialog(dialog, served.CancelResult);
    else if (control == DIALOG_HELP)
        ShowHelp(session, served.HelpNumber);
    return control == IDCANCEL || control == DIALOG_HELP;
}

INT_PTR OnCommand(const Dialog &served, HWND dialog, WPARAM wParam) {
    Session *session = DialogSession(dialog);
    if (!session) return FALSE;
    if (!CanServe(served, dialog, session)) return TRUE;
    return Serve(served, dialog, session, [&] {
        return OnControl(served, dialog, session, LOWORD(wParam), HIWORD(wParam));
    });
}

const DrawnList *DrawnOf(const Dialog &served, UINT control) {
    for (const DrawnList &list : served.Drawn)
        if (static_cast<UINT>(list.Control) == control) return &list;
    return nullptr;
}

// A list is measured while the dialog is being made, before it has its session.
INT_PTR MeasureRow(const Dialog &served, MEASUREITEMSTRUCT *row) {
    const DrawnList *list = DrawnOf(served, row->CtlID);
    if (list) row->itemHeight = list->RowHeight;
    return list != nullptr;
}

INT_PTR DrawRow(const Dialog &served, const DRAWITEMSTRUCT &row) {
    const DrawnList *list = DrawnOf(served, row.CtlID);
    if (list) list->Draw(row);
    return list != nullptr;
}

} // namespace

INT_PTR ServeDialog(const Dialog &served, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return OpenDialog(served, dialog, *reinterpret_cast<const DialogStart *>(lParam));
    case WM_COMMAND: return OnCommand(served, dialog, wParam);
    case WM_MEASUREITEM: return MeasureRow(served, reinterpret_cast<MEASUREITEMSTRUCT *>(lParam));
    case WM_DRAWITEM: return DrawRow(served, *reinterpret_cast<const DRAWITEMSTRUCT *>(lParam));
    default: return FALSE;
    }
}

void SetDialogSession(HWND dialog, Session *session) {
    SetWindowLongA(dialog, DWLP_USER, reinterpret_cast<LONG>(session));
}

Session *DialogSession(HWND dialog) {
    return reinterpret_cast<Session *>(GetWindowLongA(dialog, DWLP_USER));
}

void ShowHelp(Session *session, int helpNumber) {
    WinHelpA(session->ParentWindow, session->dialog.HelpFile, HELP_CONTEXT,
             static_cast<ULONG_PTR>(helpNumber));
}

namespace {

// A negative number is none here; some systems read it as a very large one.
bool ReadUnsigned(HWND dialog, int control, uint32_t *value) {
    BOOL valid = FALSE;
    char text[101] = "";
    *value = GetDlgItemInt(dialog, control, &valid, FALSE);
    GetDlgItemTextA(dialog, control, text, sizeof text);
    return valid && !std::strchr(text, '-');
}

} // namespace

int ReadNumberItem(HWND dialog, int control, uint32_t *value) {
    if (ReadUnsigned(dialog, control, value)) return 1;
    ShowBox(dialog, "Must Enter a Valid Number");
    SetFocus(GetDlgItem(dialog, control));
    return 0;
}

int CheckRangeItem(HWND dialog, char kind, int control, double low, double high) {
    bool valid = true;
    double value = 0.0;
    if (kind == 'I') {
        uint32_t whole = 0;
        valid = ReadUnsigned(dialog, control, &whole);
        value = whole;
    } else {
        char text[101] = "";
        GetDlgItemTextA(dialog, control, text, sizeof text);
        value = NumberIn(text);
    }
    if (valid && value >= low && value <= high) return 1;
    ShowBox(dialog, "Invalid Value, Please Re-enter", "Value Out of Range");
    SetFocus(GetDlgItem(dialog, control));
    return 0;
}

} // namespace tessarine
