// A designer on a real window, driven as by its user, in form units.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/form_builder.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"
#include "tests/support/window_driver.h"

#include <gtest/gtest.h>

class DesignerSession : public testing::Test, public WindowDriver {
protected:
    DesignerSession();
    ~DesignerSession() override;

    // The code of form(); the session is null unless it is 0.
    int Start(const std::string &path);
    int StartOn(const FormBuilder &form); // a form in a file of its own
    int StartNew() { return Start(""); }
    // Ends the session without a question.
    void End();
    HWND Window() const override { return params.FormWindow; }

    std::string Put(const FormBuilder &form); // its path
    int Row(const std::string &label) const;  // of the item with this LabelText, -1: none
    ItemRecord &Item(const std::string &label) const;
    ItemRecord &Bar(int section) const;
    FormView View() const;
    // The mouse at places of the form.
    void PressAt(int x, int y, MouseButton button = MouseButton::LEFT);
    void ReleaseAt(int x, int y, MouseButton button = MouseButton::LEFT);
    void ClickAt(int x, int y, MouseButton button = MouseButton::LEFT);
    void MoveTo(int x, int y);
    // Press, some moves on the way, release.
    void DragTo(int x, int y, int to_x, int to_y, MouseButton button = MouseButton::LEFT);

    // A form to work on: page header and detail, 400 units each, with the labels "Alpha" and "Beta"
    // in the header and "Gamma" in the detail, and a group item.
    static FormBuilder TwoSections();

    Session *session = nullptr;
    FormParams params{};
    HostWindow host;
    MessageBoxes boxes;
    TemporaryFolder folder;
    uint32_t edit_allowed = 1;
    // What the host's PickFieldProc gives (nothing while the name is empty), and what
    // CheckFieldProc knows by name; the levels with which each was asked.
    FieldRecord picked{};
    std::map<std::string, FieldRecord> known;
    std::vector<int> levels;

private:
    static int32_t __stdcall Pick(HWND window, FieldRecord *record, int32_t level, void *context);
    static int32_t __stdcall Check(HWND window, FieldRecord *record, int32_t level, void *context);

    int files_ = 0;
};
