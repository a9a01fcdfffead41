// A form in a session without a window, for tests of what a host puts into sections.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

// A page header at 0, a detail section at 400 and a page footer at 800, each 400 high with its
// caption of 40, from 62 to 1062. Row 1 is the group.
class ThreeSections : public testing::Test {
protected:
    static constexpr int CHARACTER = 12; // form units, in font row 0 of a bare session
    static constexpr int LINE = 40;
    static constexpr int CAPTION = 40;
    static constexpr int BAR_X = 62;
    static constexpr int BAR_WIDTH = 1000;

    ThreeSections();

    ItemRecord &AddItem(int type, int section, int x, int y);
    void AddBar(int section, int y);
    void FillTable(int rows);
    ItemRecord &Item(int row) { return session->form.Items[row]; }
    ItemRecord &Bar(int section) { return Item(session->form.Sections[section].BarItem); }
    int FieldsInUse();

    BareSession session;
    MessageBoxes boxes;
};
