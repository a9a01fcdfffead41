// Drives a dialog by its controls, the system's common dialogs as well.
#pragma once

#include <string>
#include <vector>

#include "state/windows.h"

// Controls of the common dialogs, as the system has them.
enum CommonControl {
    FILE_NAME = -1, // open, save: the edit control or the combo box that takes the name
    FONT_FACE = 0x470,
    FONT_STYLE = 0x471,
    FONT_SIZE = 0x472,
    SETUP_PRINTER = 0x470,
    SETUP_PAPER = 0x471,
    SETUP_PORTRAIT = 0x420,
    SETUP_LANDSCAPE = 0x421,
    CUSTOM_RED = 706,
    CUSTOM_GREEN = 707,
    CUSTOM_BLUE = 708
};

// Stands for the dialog's window: routines for MessageBoxes::OnDialog take it in its place.
class DialogDriver {
public:
    DialogDriver(HWND dialog) : dialog_(dialog) {} // NOLINT: a window is all there is to it
    operator HWND() const { return dialog_; }      // NOLINT

    std::string Title() const;
    std::vector<std::string> Texts() const; // the title and all controls, from top to bottom

    HWND Control(int control) const;
    std::string Text(int control) const;
    void SetText(int control, const std::string &text) const;
    bool Enabled(int control) const { return IsWindowEnabled(Control(control)); }
    int Focus() const { return GetDlgCtrlID(GetFocus()); }

    bool Checked(int control) const;
    void Click(int control) const; // a button, check box or radio button

    // A list box or a combo box. The dialog hears of a row that is selected, as of a user's choice.
    std::vector<std::string> Rows(int control) const;
    int Selected(int control) const; // -1: none
    void Select(int control, int row) const;
    void Select(int control, const std::string &row) const;

    // A button, or a control's notification: at once, or posted, as ends of dialogs want it.
    void Send(int control, int notification = 0) const;
    void Press(int control, int notification = 0) const;

private:
    HWND dialog_;
};
