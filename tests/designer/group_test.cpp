#include "designer/group.h"

#include <vector>

#include "designer/item_table.h"
#include "tests/support/laid_out_form.h"

using namespace tessarine;

namespace {

struct Group : LaidOutForm {
    Group() { MakeForm(); }

    std::string Members() {
        std::string names;
        for (int row = 0; row < session->form.TotalItems; ++row)
            if (IsGroupMember(session, row))
                names += session->form.Items[row].LabelText + std::string(" ");
        return names;
    }
    void ShiftClick(const std::string &name) { Item(name).ItemFlags ^= FLAG_GROUP_TOGGLE; }
    std::string Marked() {
        std::string names;
        for (int row = TakeMarked(session); row != NO_ROW; row = TakeMarked(session))
            names += session->form.Items[row].LabelText + std::string(" ");
        return names;
    }
};

} // namespace

TEST_F(Group, MembersTouchTheRectangleEdgesIncluded) {
    SelectGroup(300, 150, 400, 50);
    EXPECT_EQ(Members(), "a b c ");
    SelectGroup(301, 151, 398, 48);
    EXPECT_EQ(Members(), "b ");
    SelectGroup(90, 100, 10, 400);
    EXPECT_EQ(Members(), "a d ");
}

TEST_F(Group, BarsAndTheGroupItselfAreNoMembers) {
    SelectGroup(0, 0, 2000, 1200);
    EXPECT_EQ(Members(), "a b c d e ");
}

TEST_F(Group, NothingIsAMemberUnlessTheGroupIsSelected) {
    SelectGroup(0, 0, 2000, 1200);
    EXPECT_TRUE(IsGroupSelected(session));
    for (const int row : {Row("a"), 0, NOTHING_SELECTED, 1000}) {
        session->form.SelectedItem = row;
        EXPECT_FALSE(IsGroupSelected(session));
        EXPECT_EQ(Members(), "");
    }
}

TEST_F(Group, ShiftClickTakesOutWhatTouchesAndInWhatDoesNot) {
    SelectGroup(90, 90, 450, 100);
    EXPECT_EQ(Members(), "a b ");
    ShiftClick("a");
    ShiftClick("e");
    EXPECT_EQ(Members(), "b e ");
    ShiftClick("a");
    ShiftClick("e");
    EXPECT_EQ(Members(), "a b ");
}

TEST_F(Group, MarksAreTakenOnceInTheOrderOfTheRows) {
    SelectGroup(90, 90, 450, 100);
    Item("bar0").GroupMark = Item("e").GroupMark = 1; // as a form may have been saved
    MarkGroup(session);
    EXPECT_EQ(+Item("a").GroupMark, 1);
    EXPECT_EQ(+Item("bar0").GroupMark, 0);
    EXPECT_EQ(+Item("e").GroupMark, 0);
    EXPECT_EQ(Marked(), "a b ");
    EXPECT_EQ(Marked(), "");
}

TEST_F(Group, LeftmostAndTopmostKeepTheirMarksAndPreferTheLowerRow) {
    EXPECT_EQ(LeftmostMarked(session), NO_ROW);
    EXPECT_EQ(TopmostMarked(session), NO_ROW);
    SelectGroup(0, 0, 2000, 1200);
    MarkGroup(session);
    EXPECT_EQ(LeftmostMarked(session), Row("a")); // as far left as d and e
    EXPECT_EQ(TopmostMarked(session), Row("a"));
    EXPECT_EQ(LeftmostMarked(session), Row("a"));
    Item("e").x = 99;
    Item("b").y = 99;
    Item("c").y = 99;
    EXPECT_EQ(LeftmostMarked(session), Row("e"));
    EXPECT_EQ(TopmostMarked(session), Row("b"));
}

TEST_F(Group, RowIsTheFirstOfTypeZero) {
    EXPECT_EQ(GroupRow(session), 1);
    Item("group").ItemType = ITEM_LABEL;
    EXPECT_EQ(GroupRow(session), NO_ROW);
    Item("group").ItemType = ITEM_GROUP;
}
