#include "frame/dialogs.h"

#include <cstdlib>
#include <cstring>

#include "frame/fatal_error.h"
#include "frame/message_box.h"
#include "frame/session_table.h"

namespace tessarine {

INT_PTR RunDialog(Session *session, const char *templateName, DLGPROC procedure, LPARAM extra,
                  HWND owner) {
    DialogStart start{session, extra};
    const HWND parent = owner ? owner : session->device.Window;
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

void SetDialogSession(HWND dialog, Session *session) {
    SetWindowLongA(dialog, DWLP_USER, reinterpret_cast<LONG>(session));
}

Session *DialogSession(HWND dialog) {
    return reinterpret_cast<Session *>(GetWindowLongA(dialog, DWLP_USER));
}

void ShowHelp(Session *session, int helpNumber) {
    WinHelpA(session->ParentWindow, session->designer.HelpFile, HELP_CONTEXT,
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
        value = std::strtod(text, nullptr);
    }
    if (valid && value >= low && value <= high) return 1;
    ShowBox(dialog, "Invalid Value, Please Re-enter", "Value Out of Range");
    SetFocus(GetDlgItem(dialog, control));
    return 0;
}

} // namespace tessarine
