// The frame of all modal dialogs.
#pragma once

#include <span>

#include "state/session.h"

namespace tessarine {

struct DialogStart { // the creation parameter of every dialog
    Session *session;
    LPARAM extra;
};

// The result of a dialog that has taken what its user said. Others aren't all a Cancel's: a dialog
// that can't be shown gives -1.
constexpr INT_PTR DIALOG_OK = 1;

// Opens a modal dialog and returns its result. The owner is owner or, if null, the session's
// window. A failure inside goes on unwinding here.
INT_PTR RunDialog(Session *session, const char *templateName, DLGPROC procedure, LPARAM extra,
                  HWND owner = nullptr);

// A command of one of a dialog's controls.
struct ControlRow {
    int Control;
    void (*Act)(HWND dialog, Session *session);
    int Notification = 0; // the control's code that counts: 0 is a button's click
};

// A list that the dialog draws itself.
struct DrawnList {
    int Control;
    UINT RowHeight; // pixels
    void (*Draw)(const DRAWITEMSTRUCT &row);
};

// What a dialog is beyond the frame that all share: help, start values and commands. Cancel ends it
// with CancelResult unless a row says otherwise.
struct Dialog {
    int HelpNumber;
    // Fills the controls; false when it has given the focus to one itself.
    bool (*Open)(HWND dialog, Session *session, LPARAM extra);
    std::span<const ControlRow> Controls;
    INT_PTR CancelResult = 0;
    // Whether the row that the dialog works on is there. It is asked ahead of everything that the
    // dialog does, since a host names the row and may change it; false cancels the dialog.
    bool (*RowStands)(const Session *session) = nullptr;
    std::span<const DrawnList> Drawn = {};
};

// The procedure of every modal dialog: centres it, keeps its session, serves its controls, Cancel
// and Help. A failure ends the dialog, and goes on unwinding behind RunDialog.
INT_PTR ServeDialog(const Dialog &served, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

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
