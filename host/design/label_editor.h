// Typing into a label where it stands: an edit control over it, which the library knows.
#pragma once

#include <string>

#include <windows.h>

#include "tessarine.h"

class LabelEditor {
public:
    // Makes the control as a child of the designer's window and puts it into the form's desk.
    explicit LabelEditor(HWND designer);
    ~LabelEditor();
    LabelEditor(const LabelEditor &) = delete;
    LabelEditor &operator=(const LabelEditor &) = delete;

    // What the library tells of the selection.
    void MayEdit(bool may) { may_edit_ = may; }
    void Show(const char *text);

    // Opens the control over the selected label, all of its text selected; not when it may not be
    // edited.
    void Begin();
    // The label takes the text, or keeps the one it had.
    void Finish(bool take);
    bool Editing() const { return row_ >= 0; }
    // True when the message was a key of the control's, and is served: Esc.
    bool Translate(const MSG &message);
    // True for a notification of the control, which is served.
    bool OnCommand(WPARAM wParam, LPARAM lParam);

private:
    RECT Place() const; // of the selected item, pixels of the designer's window

    HWND designer_;
    struct Session *session_;
    FormDesk *desk_;
    HWND edit_;
    bool may_edit_ = false;
    int row_ = -1; // of the label that is being edited
    std::string before_;
};
