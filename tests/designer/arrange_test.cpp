#include "designer/arrange.h"

#include "designer/relocate.h"
#include "designer/undo.h"
#include "frame/memory.h"
#include "tests/support/item_order.h"
#include "tests/support/laid_out_form.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

using Command = void (*)(Session *);
constexpr Command commands[] = {AlignTop,      AlignBottom,   AlignMiddle, AlignLeft,
                                AlignRight,    AlignCenter,   SpaceAcross, SpaceDown,
                                SizeEvenWidth, SizeEvenHeight};

struct Arrange : LaidOutForm {
    Arrange() { MakeForm(); }

    void SelectHeader() { SelectGroup(70, 90, 900, 200); } // a, b and c
    bool HasImage() { return DesignerOf(session).UndoImage; }
    std::string Places() { return PlaceOf("a") + " " + PlaceOf("b") + " " + PlaceOf("c"); }
    void Run(Command command) {
        command(session);
        EXPECT_EQ(WhatIsUnsorted(session), "") << Names();
    }
};

struct Arrangement {
    const char *what;
    Command command;
    const char *places; // of a, b and c
};

constexpr const char *untouched = "100,100,200,50 400,110,100,60 700,200,80,40";

} // namespace

TEST_F(Arrange, EachCommandMovesTheOthersToItsAnchor) {
    constexpr Arrangement arrangements[] = {
        {"tops", AlignTop, "100,100,200,50 400,100,100,60 700,100,80,40"},
        {"bottoms", AlignBottom, "100,100,200,50 400,90,100,60 700,110,80,40"},
        {"middles", AlignMiddle, "100,100,200,50 400,95,100,60 700,105,80,40"},
        {"left edges", AlignLeft, "100,100,200,50 100,110,100,60 100,200,80,40"},
        {"right edges", AlignRight, "100,100,200,50 200,110,100,60 220,200,80,40"},
        {"centres", AlignCenter, "100,100,200,50 150,110,100,60 160,200,80,40"},
        {"across", SpaceAcross, "100,100,200,50 400,110,100,60 600,200,80,40"},
        {"down", SpaceDown, "100,100,200,50 400,150,100,60 700,210,80,40"},
        {"width", SizeEvenWidth, "100,100,200,50 400,110,200,60 700,200,200,40"},
        {"height", SizeEvenHeight, "100,100,200,50 400,110,100,50 700,200,80,50"},
    };
    SelectHeader();
    for (const Arrangement &row : arrangements) {
        Run(row.command);
        EXPECT_EQ(Places(), row.places) << row.what;
        EXPECT_EQ(session->form.SelectedItem, Row("group"));
        EXPECT_EQ(session->form.FormModified, 1u);
        EXPECT_TRUE(HasImage());
        RestoreUndo(session);
        EXPECT_EQ(Places(), untouched);
        session->form.FormModified = 0;
    }
}

TEST_F(Arrange, HalvesAreTruncatedEachByItself) {
    Item("a").height = 51;
    Item("b").height = 61;
    SelectHeader();
    Run(AlignMiddle);
    EXPECT_EQ(PlaceOf("b"), "400,95,100,61"); // 100 + 25 - 30
}

TEST_F(Arrange, AnchorIsTheLeftmostOrTheTopmostMember) {
    Item("b").x = 90;
    SelectHeader();
    Run(AlignTop);
    EXPECT_EQ(Places(), "100,110,200,50 90,110,100,60 700,110,80,40");
    Run(AlignLeft); // b and a stand equally high; b is the lower row
    EXPECT_EQ(Places(), "90,110,200,50 90,110,100,60 90,110,80,40");
}

TEST_F(Arrange, NothingHappensUnlessTheGroupIsSelected) {
    for (const Command command : commands) {
        for (const int row : {NOTHING_SELECTED, Row("a"), Row("bar0")}) {
            session->form.SelectedItem = row;
            Run(command);
            EXPECT_EQ(Places(), untouched);
            EXPECT_FALSE(HasImage());
        }
    }
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Arrange, GroupWithoutMembersTakesAnImageAndNoMore) {
    SelectGroup(1500, 50, 10, 10);
    for (const Command command : commands) {
        Run(command);
        EXPECT_TRUE(HasImage());
        EXPECT_EQ(session->form.FormModified, 0u);
        DropUndo(session);
    }
}

TEST_F(Arrange, GroupOfOneStaysAsItIs) {
    SelectGroup(390, 100, 50, 50);
    for (const Command command : commands) {
        Run(command);
        EXPECT_EQ(Places(), untouched);
        EXPECT_EQ(session->form.FormModified, 0u);
        EXPECT_TRUE(HasImage());
    }
}

TEST_F(Arrange, ShiftClickedMembersCountAsMarked) {
    Item("b").ItemFlags |= FLAG_GROUP_TOGGLE; // out
    Item("d").ItemFlags |= FLAG_GROUP_TOGGLE; // in
    Item("d").x = 130;
    SelectHeader();
    Run(AlignLeft);
    EXPECT_EQ(PlaceOf("b"), "400,110,100,60");
    EXPECT_EQ(PlaceOf("d"), "100,500,200,50");
}

TEST_F(Arrange, MembersSnapToTheGridAndTheAnchorStays) {
    SelectHeader();
    Snap(12);
    Run(AlignLeft);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(PlaceOf("b"), "94,103,100,60"); // the nearest grid line, not the anchor's edge
    EXPECT_EQ(PlaceOf("c"), "94,196,80,40");
}

TEST_F(Arrange, SnappedSpacingIsCarriedForward) {
    Item("b").x = 362; // a gap of 62
    RelocateItem(session, Row("d"), 800, -280);
    SelectHeader();
    Snap(32); // 31.25
    Run(SpaceAcross);
    EXPECT_EQ(PlaceOf("b"), "362,110,100,60"); // its place already
    EXPECT_EQ(PlaceOf("c"), "531,196,80,40");  // 362 + 100 + 62 on the grid
    EXPECT_EQ(PlaceOf("d"), "688,228,200,50"); // 531 + 80 + 62 on the grid
}

TEST_F(Arrange, ItemAlignedAcrossASectionsEdgeMayChangeItsSection) {
    Item("d").x = 90; // the anchor, in the detail section
    SelectGroup(80, 140, 400, 400);
    Run(AlignTop);
    EXPECT_EQ(PlaceOf("a"), "100,500,200,50");
    EXPECT_EQ(+Item("a").SectionIndex, SECTION_DETAIL_1);
}

TEST_F(Arrange, ItemAlignedAcrossASectionsEdgeIsHeldInTheSectionOfItsNewTop) {
    Item("a").height = 250; // ends at 350
    Item("d").height = 80;
    SelectGroup(80, 340, 300, 300); // a and d
    Run(AlignBottom);               // d would begin at 270
    EXPECT_EQ(PlaceOf("d"), "100,270,200,80");
    EXPECT_EQ(+Item("d").SectionIndex, SECTION_PAGE_HEADER);
    Item("d").y = 320;
    Run(AlignBottom);
    EXPECT_EQ(PlaceOf("d"), "100,270,200,80");
}

TEST_F(Arrange, NumberAlignedOutOfAFooterNoLongerSums) {
    AddFieldItem("sum", SECTION_PAGE_FOOTER, 300, 900, TYPE_NUMERIC);
    FieldOf("sum").SummaryType = SUMMARY_TOTAL;
    SelectGroup(80, 520, 300, 400); // d, e and sum
    Run(AlignTop);
    EXPECT_EQ(PlaceOf("sum"), "300,500,100,50");
    EXPECT_EQ(+FieldOf("sum").SummaryType, SUMMARY_VALUE);
}

TEST_F(Arrange, OverlappingFirstTwoAreSpacedWithoutAGap) {
    SelectHeader();
    Item("b").x = 250;
    Run(SpaceAcross);
    EXPECT_EQ(Places(), "100,100,200,50 300,110,100,60 400,200,80,40");
}

TEST_F(Arrange, EvenSizesKeepTheirSizeAndLeavePaintingAsItWas) {
    for (const uint32_t painting : {1u, 0u}) {
        session->view.PaintEnabled = painting;
        SelectHeader();
        SizeEvenWidth(session);
        EXPECT_EQ(session->view.PaintEnabled, painting);
    }
    session->view.PaintEnabled = 0;
    EXPECT_EQ(+Item("a").KeepSize, 0); // the anchor
    EXPECT_EQ(+Item("b").KeepSize, 1);
    EXPECT_EQ(+Item("c").KeepSize, 1);
    EXPECT_EQ(+Item("group").KeepSize, 0);
}

TEST_F(Arrange, HeightIsThatOfTheLeftmostMember) {
    Item("c").x = 80;
    SelectHeader();
    Run(SizeEvenHeight);
    EXPECT_EQ(Places(), "100,100,200,40 400,110,100,40 80,200,80,40");
}

TEST_F(Arrange, ImageWithoutMemoryShowsABoxAndTheCommandGoesOn) {
    MessageBoxes boxes;
    SelectHeader();
    FailAllocation(1);
    Run(AlignTop);
    FailAllocation(0);
    EXPECT_EQ(boxes.Log().size(), 1u);
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(PlaceOf("c"), "700,100,80,40");
}
