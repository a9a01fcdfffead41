// A form for tests of the clipboard, and who else works on the clipboard.
#pragma once

#include <string>
#include <thread>

#include "tests/support/designer_session.h"

// Page header and detail. In the detail from left to right: the label "Gamma", the field "NAME",
// the calculation "CALC->SUM", which is a constant and itself, and a line.
class ClipboardForm : public DesignerSession {
protected:
    ClipboardForm();

    FormBuilder Builder();
    void Open() { StartOn(Builder()); }
    int RowOfType(int type) const; // the first item of it, -1: none
    int FieldsInUse() const;
    int References() const; // to the constant
    // Selects a row as a click does, as far as the form is concerned.
    void Choose(int row) { session->form.SelectedItem = row; }
    // Selects the group, its rectangle around the whole form.
    void ChooseAll();
    void Copy(int row);
    void Cut(int row);
    // Pastes with the copied block's corner here.
    void PasteAt(int x, int y);
    bool MarkerStands() const;

    int constant = 0; // field row, shared

private:
    int calculation_ = 0;
};

// Another thread with the clipboard open, as another program would have it.
class ClipboardHolder {
public:
    ClipboardHolder();
    ~ClipboardHolder();
    ClipboardHolder(const ClipboardHolder &) = delete;
    ClipboardHolder &operator=(const ClipboardHolder &) = delete;

private:
    HANDLE held_;
    HANDLE end_;
    std::thread thread_;
};
