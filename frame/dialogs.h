// The frame of all modal dialogs.
#pragma once

#include "frame/session.h"

namespace tessarine {

struct DialogStart { // the creation parameter of every dialog
    Session *session;
    LPARAM extra;
};

// Opens a modal dialog and returns its result. The owner is owner or, if null, the session's
// window. A failure inside goes on unwinding here.
INT_PTR RunDialog(Session *session, const char *templateName, DLGPROC procedure, LPARAM extra,
                  HWND owner = nullptr);

// Puts a dialog in the middle of its parent (of the screen without one), wholly on the screen.
void CentreDialog(HWND dialog);

// Stores and fetches the session in the dialog's window long at index 8.
void SetDialogSession(HWND dialog, Session *session);
Session *DialogSession(HWND dialog);

// Calls the help with the dialog's number.
void ShowHelp(Session *session, int helpNumber);

// Reads an unsigned number. 1, or 0 after "Must Enter a Valid Number" with the focus on the
// control.
int ReadNumberItem(HWND dialog, int control, uint32_t *value);
// Kind 'I' reads an unsigned integer, any other a double. 1 when low <= value <= high.
int CheckRangeItem(HWND dialog, char kind, int control, double low, double high);

} // namespace tessarine
