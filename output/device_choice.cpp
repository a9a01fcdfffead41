#include "output/device_choice.h"

#include "commands.h"
#include "form/defaults.h"
#include "form/modified.h"
#include "frame/dialog_controls.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr int DEVICE_HELP = 3015;
constexpr int CANCELLED = -1;

bool Open(HWND dialog, Session *session, LPARAM) {
    AddListRow(dialog, "Screen");
    AddListRow(dialog, "Printer");
    if (!session->ViewingFile) AddListRow(dialog, "Disk File");
    SelectListRow(dialog, 0);
    return true;
}

void Choose(HWND dialog, Session *session) {
    EndDialog(dialog, SelectedListRow(dialog));
    SetModified(session, 1);
}

constexpr ControlRow controls[] = {{IDOK, Choose}, {LIST_CHOICE, Choose, LBN_DBLCLK}};
constexpr Dialog device_dialog{DEVICE_HELP, Open, controls, CANCELLED};

} // namespace

// The session's variables have their start state only when its printer is bound.
int AskDevice(Session *session) {
    SetHelpFile(session);
    const HWND owner = session->Window ? session->Window : session->ParentWindow;
    if (owner && !IsWindow(owner)) return CANCELLED; // else the dialog's failure reads as a choice
    return static_cast<int>(RunDialog(session, "DeviceParam", DeviceParam, 0, owner));
}

INT_PTR CALLBACK DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return ServeDialog(device_dialog, dialog, message, wParam, lParam);
}

} // namespace tessarine
