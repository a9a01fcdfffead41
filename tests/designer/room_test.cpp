#include "designer/room.h"

#include "designer/undo.h"
#include "tests/support/failing_call.h"
#include "tests/support/item_order.h"
#include "tests/support/laid_out_form.h"

using namespace tessarine;

namespace {

using Command = void (*)(Session *);

struct Room : LaidOutForm {
    Room() {
        MakeForm();
        session->form.FormModified = 0;
    }

    // How often the system was asked to beep.
    int Run(Command command) {
        const FailingCall beeps("MessageBeep", MessageBeep, TRUE, 1, EVERY_CALL);
        command(session);
        return beeps.Seen();
    }
    std::string Bars() { return PlaceOf("bar0") + " " + PlaceOf("bar11") + " " + PlaceOf("bar30"); }
    bool Modified() { return session->form.FormModified; }
};

constexpr const char *bars = "62,0,1876,400 62,400,1876,400 62,800,1876,400";
constexpr Command commands[] = {ExpandAcross, ExpandDown, CompressAcross, CompressDown};

} // namespace

TEST_F(Room, NothingHappensUnlessTheGroupIsSelected) {
    for (const Command command : commands) {
        Select("a");
        EXPECT_EQ(Run(command), 0);
        EXPECT_EQ(DesignerOf(session).UndoImage, nullptr);
    }
    EXPECT_FALSE(Modified());
    EXPECT_EQ(Bars(), bars);
}

TEST_F(Room, ExpandAcrossMovesWhatBeginsBehindTheGroupsLeftEdge) {
    SelectGroup(350, 120, 75, 60);
    EXPECT_EQ(Run(ExpandAcross), 0);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(PlaceOf("b"), "475,110,100,60");
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40"); // below the strip
    EXPECT_EQ(PlaceOf("group"), "350,120,75,60");
    EXPECT_EQ(Bars(), bars);
    EXPECT_TRUE(Modified());
    EXPECT_EQ(session->form.SelectedItem, Row("group"));
    EXPECT_NE(DesignerOf(session).UndoImage, nullptr);
}

TEST_F(Room, StripAcrossTouchesItsUpperAndLowerEdge) {
    SelectGroup(90, 150, 10, 50); // a ends at 150, c begins at 200
    Run(ExpandAcross);
    EXPECT_EQ(PlaceOf("a"), "110,100,200,50");
    EXPECT_EQ(PlaceOf("c"), "710,200,80,40");
}

TEST_F(Room, ItemPushedToTheRightEdgeGoesFurtherByWhatIsLeft) {
    struct {
        int x;
        int moved;
    } constexpr cases[] = {
        {1756, 1856}, // its right edge is at 1936, one before the limit
        {1757, 1957}, // at the limit: by 100 - 0 more
        {1787, 1957}, // beyond it by 30: by 70 more
        {1887, 1957}, // by 130: back by 30
    };
    Item("c").y = 120;
    SelectGroup(600, 110, 100, 60);
    for (const auto &row : cases) {
        Item("c").x = static_cast<int16_t>(row.x);
        Run(ExpandAcross);
        EXPECT_EQ(+Item("c").x, row.moved) << row.x;
    }
}

TEST_F(Room, ExpandAcrossWithNothingToMoveChangesNothing) {
    SelectGroup(1500, 50, 10, 10);
    EXPECT_EQ(Run(ExpandAcross), 0);
    EXPECT_FALSE(Modified());
    EXPECT_NE(DesignerOf(session).UndoImage, nullptr);
}

TEST_F(Room, CompressAcrossClosesAnEmptyStrip) {
    SelectGroup(310, 120, 80, 60);
    EXPECT_EQ(Run(CompressAcross), 0);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(PlaceOf("b"), "320,110,100,60");
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
    EXPECT_TRUE(Modified());
}

TEST_F(Room, CompressAcrossWithAnItemInTheWayBeeps) {
    for (const int left : {310, 400}) { // b's left edge is the strip's right, and its left
        SelectGroup(left, 120, 90, 60);
        EXPECT_EQ(Run(CompressAcross), 1);
        EXPECT_EQ(PlaceOf("b"), "400,110,100,60");
        EXPECT_FALSE(Modified());
        EXPECT_NE(DesignerOf(session).UndoImage, nullptr);
    }
}

TEST_F(Room, ExpandDownMovesEverythingBelowAndTheReportGrows) {
    SelectGroup(900, 110, 50, 30);
    EXPECT_EQ(Run(ExpandDown), 0);
    EXPECT_EQ(PlaceOf("group"), "900,110,50,30");
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(PlaceOf("b"), "400,140,100,60");
    EXPECT_EQ(PlaceOf("c"), "700,230,80,40");
    EXPECT_EQ(PlaceOf("d"), "100,530,200,50");
    EXPECT_EQ(PlaceOf("e"), "100,930,200,50");
    EXPECT_EQ(Bars(), "62,0,1876,430 62,430,1876,400 62,830,1876,400");
    EXPECT_EQ(session->form.ReportHeight, 1230);
    EXPECT_TRUE(Modified());
}

TEST_F(Room, CompressDownClosesAnEmptyStripAndTheReportShrinks) {
    SelectGroup(900, 160, 50, 30);
    EXPECT_EQ(Run(CompressDown), 0);
    EXPECT_EQ(PlaceOf("b"), "400,110,100,60"); // begins above the strip
    EXPECT_EQ(PlaceOf("c"), "700,170,80,40");
    EXPECT_EQ(PlaceOf("e"), "100,870,200,50");
    EXPECT_EQ(Bars(), "62,0,1876,370 62,370,1876,400 62,770,1876,400");
    EXPECT_EQ(session->form.ReportHeight, 1170);
    EXPECT_EQ(session->form.SelectedItem, Row("group"));
}

TEST_F(Room, CompressDownWithItemsInsideBeeps) {
    for (const int top : {60, 120, 200}) { // c's upper edge is the strip's lower, and its upper
        SelectGroup(900, top, 50, 80);
        EXPECT_EQ(Run(CompressDown), 1) << top;
    }
    EXPECT_EQ(Bars(), bars);
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
    EXPECT_EQ(session->form.ReportHeight, 1200);
    EXPECT_FALSE(Modified());
}

TEST_F(Room, CompressDownLeavesTheBarOfTheGroupsSection) {
    SelectGroup(900, 401, 50, 30);
    Item("bar11").y = 401; // as high as the strip
    Run(CompressDown);
    EXPECT_EQ(Bars(), "62,0,1876,400 62,401,1876,370 62,770,1876,400");
}

TEST_F(Room, LabelKeepsItsSize) {
    session->LabelMode = 1;
    SelectGroup(900, 160, 50, 30);
    Run(CompressDown);
    EXPECT_EQ(PlaceOf("c"), "700,170,80,40");
    EXPECT_EQ(PlaceOf("bar0"), "62,0,1876,400");
    Run(ExpandDown);
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
    EXPECT_EQ(PlaceOf("bar0"), "62,0,1876,400");
    EXPECT_EQ(session->form.ReportHeight, 1200);
}

TEST_F(Room, NothingIsSortedAndNothingSnaps) {
    Snap(100);
    SelectGroup(390, 105, 350, 30);
    Item("group").SectionIndex = SECTION_PAGE_HEADER;
    Run(ExpandAcross); // b goes behind c
    EXPECT_EQ(PlaceOf("b"), "750,110,100,60");
    EXPECT_EQ(Names(), "bar0 a group b c bar11 d bar30 e");
    EXPECT_EQ(WhatIsUnsorted(session), "");
    SelectGroup(100, 100, 10, 31); // stays, while a and what follows it goes below
    Run(ExpandDown);
    EXPECT_EQ(Names(), "bar0 group a b c bar11 d bar30 e");
}

TEST_F(Room, UndoBringsBackTheRowsButNotTheReportsHeight) {
    SelectGroup(900, 110, 50, 30);
    Run(ExpandDown);
    RestoreUndo(session);
    EXPECT_EQ(PlaceOf("e"), "100,900,200,50");
    EXPECT_EQ(Bars(), bars);
    EXPECT_EQ(session->form.ReportHeight, 1230);
}

TEST_F(Room, FormThatWouldLeaveSixteenBitsStaysAsItIs) {
    SelectGroup(900, 110, 50, 32000);
    Run(ExpandDown);
    EXPECT_EQ(Bars(), bars);
    EXPECT_EQ(session->form.ReportHeight, 1200);
    EXPECT_FALSE(Modified());
    Item("c").y = 120;
    SelectGroup(350, 110, 32500, 60);
    Run(ExpandAcross);
    EXPECT_EQ(PlaceOf("b"), "400,110,100,60");
    EXPECT_EQ(PlaceOf("c"), "700,120,80,40");
    EXPECT_FALSE(Modified());
}

TEST_F(Room, GroupOfALostSectionMovesNothing) {
    SelectGroup(350, 110, 50, 60);
    Item("group").SectionIndex = SECTION_DETAIL_9;
    Run(ExpandAcross);
    Run(ExpandDown);
    EXPECT_EQ(PlaceOf("b"), "400,110,100,60");
    EXPECT_EQ(Bars(), bars);
    Item("group").SectionIndex = SECTION_PAGE_HEADER;
}
