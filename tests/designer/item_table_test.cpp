#include "designer/item_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "designer/designer_state.h"
#include "form/defaults.h"
#include "frame/memory.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

// Rows are named by LabelText.
class ItemTable : public testing::Test {
protected:
    void Add(const std::string &name, int type, int section, int x, int y) {
        ItemRecord &item = session->form.Items[session->form.TotalItems];
        item = DefaultItem(session);
        item.ItemType = static_cast<uint16_t>(type);
        item.SectionIndex = static_cast<int16_t>(section);
        item.x = static_cast<int16_t>(x);
        item.y = static_cast<int16_t>(y);
        name.copy(item.LabelText, name.size());
        if (type == ITEM_BAR)
            session->form.Sections[section].BarItem =
                static_cast<int16_t>(session->form.TotalItems);
        ++session->form.TotalItems;
    }
    // Two sections with two labels each.
    void MakeForm() {
        Add("bar0", ITEM_BAR, 0, 62, 0);
        Add("a", ITEM_LABEL, 0, 100, 50);
        Add("b", ITEM_LABEL, 0, 300, 50);
        Add("bar11", ITEM_BAR, 11, 62, 400);
        Add("c", ITEM_LABEL, 11, 100, 450);
        Add("d", ITEM_LABEL, 11, 100, 500);
    }
    std::string Names() const {
        std::string names;
        for (int row = 0; row < session->form.TotalItems; ++row)
            names += (row ? " " : "") + std::string(session->form.Items[row].LabelText);
        return names;
    }
    int PlaceOf(int section, int x, int y) {
        DesignerOf(session).FocusRect = {x, y, x + 10, y + 10};
        return InsertionRow(session, section);
    }
    int Bar(int section) { return session->form.Sections[section].BarItem; }

    mutable BareSession session;
};

} // namespace

TEST_F(ItemTable, PlaceIsByYAndOnEqualYByX) {
    MakeForm();
    EXPECT_EQ(PlaceOf(0, 100, 40), 1);
    EXPECT_EQ(PlaceOf(0, 99, 50), 1);
    EXPECT_EQ(PlaceOf(0, 100, 50), 1);
    EXPECT_EQ(PlaceOf(0, 101, 50), 2);
    EXPECT_EQ(PlaceOf(0, 301, 50), 3);
    EXPECT_EQ(PlaceOf(11, 0, 470), 5);
    EXPECT_EQ(PlaceOf(11, 0, 501), 6);
}

TEST_F(ItemTable, PlaceIsBeforeTheBarOfALaterSection) {
    MakeForm();
    EXPECT_EQ(PlaceOf(0, 100, 1000), 3);
    EXPECT_EQ(PlaceOf(5, 100, 1000), 3);
    EXPECT_EQ(PlaceOf(11, 100, 1000), 6);
}

TEST_F(ItemTable, OpenedRowsMoveTheBarsBehindThem) {
    MakeForm();
    ShiftItems(session, 2, 2, SHIFT_OPEN);
    EXPECT_EQ(session->form.TotalItems, 8);
    EXPECT_STREQ(session->form.Items[4].LabelText, "b");
    EXPECT_EQ(Bar(0), 0);
    EXPECT_EQ(Bar(11), 5);
    ShiftItems(session, 2, 2, SHIFT_REMOVE);
    EXPECT_EQ(Names(), "bar0 a b bar11 c d");
    EXPECT_EQ(Bar(11), 3);
}

TEST_F(ItemTable, RowsAtTheEndAreOpenedAndRemoved) {
    MakeForm();
    ShiftItems(session, 6, 1, SHIFT_OPEN);
    EXPECT_EQ(session->form.TotalItems, 7);
    ShiftItems(session, 6, 1, SHIFT_REMOVE);
    EXPECT_EQ(Names(), "bar0 a b bar11 c d");
}

TEST_F(ItemTable, FirstBarsSectionComesFirstWhenItsPlaceWasTaken) {
    Add("group", ITEM_GROUP, 11, 0, 0);
    Add("x", ITEM_LABEL, 11, 0, 0);
    Add("gone", ITEM_LABEL, 11, 0, 0);
    Add("bar0", ITEM_BAR, 0, 62, 0);
    Add("a", ITEM_LABEL, 0, 100, 50);
    Add("bar11", ITEM_BAR, 11, 62, 400);
    ShiftItems(session, 2, 1, SHIFT_REMOVE);
    EXPECT_EQ(Names(), "bar0 a group x bar11");
    EXPECT_EQ(Bar(0), 0);
    EXPECT_EQ(Bar(11), 4);
    EXPECT_EQ(+session->form.Items[2].SectionIndex, 0); // the group goes with row 0
    EXPECT_EQ(+session->form.Items[3].SectionIndex, 11);
}

TEST_F(ItemTable, OrderStaysWhenThereIsNoMemoryToChangeIt) {
    MessageBoxes boxes;
    Add("x", ITEM_LABEL, 0, 0, 0);
    Add("gone", ITEM_LABEL, 0, 0, 0);
    Add("bar0", ITEM_BAR, 0, 62, 0);
    FailAllocation(1);
    ShiftItems(session, 1, 1, SHIFT_REMOVE);
    FailAllocation(0);
    EXPECT_EQ(Names(), "x bar0");
    EXPECT_EQ(Bar(0), 1);
    EXPECT_EQ(boxes.Log().size(), 1u);
}

TEST_F(ItemTable, ReorderingLeavesNoBlockBehind) {
    Add("x", ITEM_LABEL, 0, 0, 0);
    Add("gone", ITEM_LABEL, 0, 0, 0);
    Add("bar0", ITEM_BAR, 0, 62, 0);
    const int blocks = LiveBlocks();
    ShiftItems(session, 1, 1, SHIFT_REMOVE);
    EXPECT_EQ(Names(), "bar0 x");
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(ItemTable, TableWithoutBarsCanBeEmptied) {
    Add("x", ITEM_LABEL, 0, 0, 0);
    Add("y", ITEM_LABEL, 0, 0, 0);
    ShiftItems(session, 0, 1, SHIFT_REMOVE);
    ShiftItems(session, 0, 1, SHIFT_REMOVE);
    EXPECT_EQ(session->form.TotalItems, 0);
}

TEST_F(ItemTable, RowsThatDoNotFitTheTableChangeNothing) {
    MakeForm();
    ShiftItems(session, 7, 1, SHIFT_OPEN);
    ShiftItems(session, -1, 1, SHIFT_OPEN);
    ShiftItems(session, 0, 316, SHIFT_OPEN);
    ShiftItems(session, 5, 2, SHIFT_REMOVE);
    EXPECT_EQ(Names(), "bar0 a b bar11 c d");
    ShiftItems(session, 6, 315, SHIFT_OPEN);
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS + 1);
}
