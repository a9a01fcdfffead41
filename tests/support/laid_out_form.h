// A form of named items for tests of what works on the item table, without window or file.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "designer/designer_state.h"
#include "tests/support/test_session.h"

// Captions are 40 high, snapping is off and a pixel is 2 form units. Rows are named by LabelText,
// bars "bar0" and so on. Behind each test the table must be in order.
class LaidOutForm : public testing::Test {
protected:
    LaidOutForm();
    ~LaidOutForm() override;
    void TearDown() override;

    void Section(int section, int y, int height); // its bar, 62 to 1938 across
    ItemRecord &Add(const std::string &name, int type, int section, int x, int y, int width,
                    int height);
    ItemRecord &AddFieldItem(const std::string &name, int section, int x, int y, int value_type,
                             int kind = FIELD_DATA);
    // A page header, a detail section and a page footer, 400 high each, and an empty group.
    // Header: "a" 100,100 200 by 50, "b" 400,110 100 by 60, "c" 700,200 80 by 40.
    // Detail: "d" 100,500 200 by 50. Footer: "e" 100,900 200 by 50.
    void MakeForm();

    int Row(const std::string &name) const; // -1: none
    ItemRecord &Item(const std::string &name) const;
    FieldRecord &FieldOf(const std::string &name) const;
    std::string Names() const;                          // in the order of the rows
    std::string PlaceOf(const std::string &name) const; // "x,y,width,height"
    void Select(const std::string &name) { session->form.SelectedItem = Row(name); }
    // Gives the group a rectangle and its place in the table, and selects it.
    void SelectGroup(int x, int y, int width, int height);
    void Snap(int grid_size, int ruler_flags = RULER_INCHES);
    RECT &Focus() const { return tessarine::DesignerOf(session).FocusRect; }

    mutable BareSession session;
};
