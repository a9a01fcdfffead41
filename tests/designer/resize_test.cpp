#include "designer/resize.h"

#include <cstring>

#include "designer/item_table.h"
#include "tests/support/item_order.h"
#include "tests/support/laid_out_form.h"

using namespace tessarine;

namespace {

struct Resize : LaidOutForm {
    Resize() { MakeForm(); }

    std::string SizeTo(const std::string &name, const RECT &place) {
        Select(name);
        Focus() = place;
        EXPECT_NE(SizeItem(session), 0);
        EXPECT_EQ(session->form.SelectedItem, Row(name));
        EXPECT_EQ(session->form.FormModified, 1u);
        EXPECT_EQ(WhatIsUnsorted(session), "") << Names();
        return PlaceOf(name);
    }
    // A section's band by its upper and lower edge.
    std::string SizeBand(const std::string &bar, int top, int bottom) {
        Select(bar);
        Focus() = {62, top, 1938, bottom};
        EXPECT_NE(SizeItem(session), 0);
        EXPECT_EQ(session->form.SelectedItem, Row(bar));
        EXPECT_EQ(Names(), "bar0 group a b c bar11 d bar30 e");
        return PlaceOf(bar);
    }
};

} // namespace

TEST_F(Resize, ItemTakesTheRectangleAndKeepsItsSize) {
    EXPECT_EQ(SizeTo("a", {110, 120, 400, 300}), "110,120,290,180");
    EXPECT_EQ(+Item("a").KeepSize, 1);
    EXPECT_EQ(Names(), "bar0 group b a c bar11 d bar30 e");
}

TEST_F(Resize, MirroredRectangleIsOrdered) {
    EXPECT_EQ(SizeTo("a", {400, 300, 110, 120}), "110,120,290,180");
}

TEST_F(Resize, ItemMayChangeItsSectionByBeingSized) {
    EXPECT_EQ(SizeTo("a", {100, 450, 300, 500}), "100,450,200,50");
    EXPECT_EQ(+Item("a").SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(Names(), "bar0 group b c bar11 a d bar30 e");
    EXPECT_EQ(SizeTo("a", {100, 350, 300, 500}), "100,250,200,150");
    EXPECT_EQ(+Item("a").SectionIndex, SECTION_PAGE_HEADER);
}

TEST_F(Resize, CornerSnapsAndTheSizeDoesNot) {
    Snap(12);
    EXPECT_EQ(SizeTo("a", {100, 100, 217, 133}), "94,103,117,33");
}

TEST_F(Resize, ItemIsAtLeastOneUnitWideAndHigh) {
    EXPECT_EQ(SizeTo("a", {100, 100, 100, 100}), "100,100,1,1");
}

TEST_F(Resize, SampleTextOfAFieldFollowsItsWidth) {
    AddFieldItem("text", SECTION_PAGE_FOOTER, 100, 1000, TYPE_TEXT);
    FieldOf("text").FieldWidth = 20;
    Select("text");
    Focus() = {100, 1000, 100 + 10 * 12 + 20, 1050}; // room for 10 characters
    const int row = Row("text");
    EXPECT_NE(SizeItem(session), 0);
    EXPECT_EQ(strlen(session->form.Items[row].LabelText), 10u);
    Focus() = {100, 1000, 100 + 15 * 12 + 20, 1050};
    SizeItem(session);
    EXPECT_EQ(strlen(session->form.Items[row].LabelText), 15u);
}

TEST_F(Resize, GroupTakesAnyRectangle) {
    EXPECT_EQ(SizeTo("group", {0, 390, 500, 1000}), "0,390,500,610");
    EXPECT_EQ(Names(), "bar0 a b c group bar11 d bar30 e");
    EXPECT_EQ(SizeTo("group", {62, 900, -10, 401}), "-10,401,72,499");
    EXPECT_EQ(Names(), "bar0 a b c bar11 group d bar30 e");
}

TEST_F(Resize, RectangleBeyondSixteenBitsIsRefused) {
    Select("a");
    Focus() = {100, 100, 50000, 200};
    EXPECT_EQ(SizeItem(session), 0);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Resize, NothingSelectedNothingIsSized) {
    session->form.SelectedItem = NOTHING_SELECTED;
    EXPECT_EQ(SizeItem(session), 0);
    EXPECT_EQ(SizeSection(session), 0);
    Select("a");
    EXPECT_EQ(SizeSection(session), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Resize, GrowthOfTheFirstSectionMovesEverythingBelowByItself) {
    EXPECT_EQ(SizeBand("bar0", 0, 470), "62,0,1876,470");
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
    EXPECT_EQ(PlaceOf("bar11"), "62,470,1876,400");
    EXPECT_EQ(PlaceOf("d"), "100,570,200,50");
    EXPECT_EQ(PlaceOf("bar30"), "62,870,1876,400");
    EXPECT_EQ(PlaceOf("e"), "100,970,200,50");
    EXPECT_EQ(session->form.ReportHeight, 1270);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(Resize, SectionShrinksNoFurtherThanItsContent) {
    EXPECT_EQ(SizeBand("bar11", 400, 450), "62,400,1876,151"); // d ends at 550
    EXPECT_EQ(PlaceOf("d"), "100,500,200,50");
    EXPECT_EQ(PlaceOf("bar30"), "62,551,1876,400");
    EXPECT_EQ(session->form.ReportHeight, 951);
}

TEST_F(Resize, SectionWithoutItemsStopsAtOneAndAHalfCaptions) {
    ShiftItems(session, Row("d"), 1, SHIFT_REMOVE);
    Select("bar11");
    Focus() = {62, 400, 1938, 405};
    EXPECT_NE(SizeSection(session), 0);
    EXPECT_EQ(PlaceOf("bar11"), "62,400,1876,60");
    EXPECT_EQ(PlaceOf("bar30"), "62,460,1876,400");
    session->form.Header.BarHeight = 33;
    Focus() = {62, 400, 1938, 405};
    EXPECT_NE(SizeSection(session), 0);
    EXPECT_EQ(PlaceOf("bar11"), "62,400,1876,49");
}

TEST_F(Resize, UpperEdgeDraggedDownTakesRoomAboveTheItems) {
    EXPECT_EQ(SizeBand("bar11", 430, 800), "62,400,1876,370");
    EXPECT_EQ(PlaceOf("d"), "100,470,200,50"); // as far from the dragged edge as before
    EXPECT_EQ(PlaceOf("bar30"), "62,770,1876,400");
    EXPECT_EQ(PlaceOf("bar0"), "62,0,1876,400");
    EXPECT_EQ(session->form.ReportHeight, 1170);
}

TEST_F(Resize, UpperEdgeStopsAtTheHighestItem) {
    EXPECT_EQ(SizeBand("bar11", 490, 800), "62,400,1876,341"); // to 459: d at 500, less a caption
    EXPECT_EQ(PlaceOf("d"), "100,441,200,50");
}

TEST_F(Resize, UpperEdgeDraggedUpGivesRoomAboveTheItems) {
    EXPECT_EQ(SizeBand("bar11", 350, 800), "62,400,1876,450");
    EXPECT_EQ(PlaceOf("d"), "100,550,200,50");
    EXPECT_EQ(PlaceOf("bar30"), "62,850,1876,400");
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
}

TEST_F(Resize, UpperHandleTakesTheCaptionAndAFewUnitsAtOnce) {
    Item("d").y = 600;
    EXPECT_EQ(SizeBand("bar11", 443, 800), "62,400,1876,357"); // the handle lies at 440
    EXPECT_EQ(PlaceOf("d"), "100,557,200,50");
}

TEST_F(Resize, GroupDoesNotHoldABandOpenButStaysInIt) {
    SelectGroup(900, 700, 100, 90);
    Select("bar11");
    Focus() = {62, 400, 1938, 600};
    EXPECT_NE(SizeItem(session), 0);
    EXPECT_EQ(PlaceOf("bar11"), "62,400,1876,200");
    EXPECT_EQ(PlaceOf("group"), "900,599,100,90");
    SelectGroup(900, 445, 100, 90);
    Select("bar11");
    Focus() = {62, 420, 1938, 600};
    EXPECT_NE(SizeItem(session), 0);
    EXPECT_EQ(PlaceOf("group"), "900,440,100,90");
}

TEST_F(Resize, SectionThatWouldPushRowsBeyondSixteenBitsStays) {
    Select("bar0");
    Focus() = {62, 0, 1938, 32500};
    EXPECT_EQ(SizeItem(session), 0);
    EXPECT_EQ(PlaceOf("bar0"), "62,0,1876,400");
    EXPECT_EQ(PlaceOf("e"), "100,900,200,50");
    EXPECT_EQ(session->form.ReportHeight, 1200);
    EXPECT_EQ(session->form.FormModified, 0u);
}
