#include "output/device_choice.h"

#include "commands.h"
#include "form/defaults.h"
#include "form/modified.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr int DEVICE_HELP = 3015;
constexpr int CANCELLED = 0; // as a dialog that could not be shown gives

void AddChoice(HWND dialog, const char *text) {
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

bool Open(HWND dialog, Session *session, LPARAM) {
    AddChoice(dialog, "Screen");
    AddChoice(dialog, "Printer");
    if (!session->ViewingFile) AddChoice(dialog, "Disk File");
    SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETCURSEL, 0, 0);
    return true;
}

void Choose(HWND dialog, Session *session) {
    EndDialog(dialog, 1 + SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETCURSEL, 0, 0));
    SetModified(session, 1);
}

constexpr ControlRow controls[] = {{IDOK, Choose}, {LIST_CHOICE, Choose, LBN_DBLCLK}};
constexpr Dialog device_dialog{DEVICE_HELP, Open, controls, CANCELLED};

} // namespace

// The session's variables have their start state only when its printer is bound.
int AskDevice(Session *session) {
    SetHelpFile(session);
    const HWND owner = session->Window ? nullptr : session->ParentWindow;
    return static_cast<int>(RunDialog(session, "DeviceParam", DeviceParam, 0, owner)) - 1;
}

INT_PTR CALLBACK DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(device_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
