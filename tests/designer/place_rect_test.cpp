#include "designer/place_rect.h"

#include "commands.h"
#include "tests/support/entry_code.h"
#include "tests/support/laid_out_form.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

struct PlaceRectTest : LaidOutForm {
    PlaceRectTest() { MakeForm(); }

    int BarAt(int y) { return session->form.Items[SectionAt(session, y)].SectionIndex; }
    std::string Placed(RECT place) {
        session->form.SelectedItem = Row("a");
        Focus() = place;
        section = PlaceRect(session);
        return Text(Focus());
    }
    static std::string Text(const RECT &place) {
        return std::to_string(place.left) + "," + std::to_string(place.top) + "," +
               std::to_string(place.right) + "," + std::to_string(place.bottom);
    }

    int section = -1;
};

struct SnapCase {
    int grid;
    int ruler;
    int x;
    int snapped_x;
    int y; // in the detail section, whose caption ends at 440
    int snapped_y;
};

} // namespace

TEST_F(PlaceRectTest, SectionIsTheFirstBarThatHoldsTheHeightEndsIncluded) {
    EXPECT_EQ(BarAt(0), SECTION_PAGE_HEADER);
    EXPECT_EQ(BarAt(400), SECTION_PAGE_HEADER);
    EXPECT_EQ(BarAt(401), SECTION_DETAIL_1);
    EXPECT_EQ(BarAt(800), SECTION_DETAIL_1);
    EXPECT_EQ(BarAt(1200), SECTION_PAGE_FOOTER);
}

TEST_F(PlaceRectTest, HeightOutsideAllBandsFallsToTheLastBarAndAboveZeroToTheFirst) {
    EXPECT_EQ(BarAt(1201), SECTION_PAGE_FOOTER);
    EXPECT_EQ(BarAt(30000), SECTION_PAGE_FOOTER);
    EXPECT_EQ(BarAt(-1), SECTION_PAGE_HEADER);
    Item("bar0").y = 10; // a gap above it
    EXPECT_EQ(BarAt(5), SECTION_PAGE_FOOTER);
}

TEST_F(PlaceRectTest, TableWithoutBarsIsFatal) {
    MessageBoxes boxes;
    session->form.TotalItems = 0;
    EXPECT_EQ(EntryCode(session, [&] { SectionAt(session, 100); }), CODE_DISPLAY);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"Fatal Error", "Error Section Selection", {IDOK}}}));
}

TEST_F(PlaceRectTest, RectangleInsideItsSectionStaysAndItsEdgesAreOrdered) {
    EXPECT_EQ(Placed({300, 100, 400, 200}), "300,100,400,200");
    EXPECT_EQ(section, SECTION_PAGE_HEADER);
    EXPECT_EQ(Placed({400, 700, 300, 600}), "300,600,400,700");
    EXPECT_EQ(section, SECTION_DETAIL_1);
}

TEST_F(PlaceRectTest, RectangleAcrossASectionsEdgeIsMovedIntoTheSectionOfItsTop) {
    EXPECT_EQ(Placed({300, 350, 400, 450}), "300,300,400,400");
    EXPECT_EQ(section, SECTION_PAGE_HEADER);
}

TEST_F(PlaceRectTest, RectangleOnTheCaptionGoesBelowIt) {
    EXPECT_EQ(Placed({300, 440, 400, 500}), "300,441,400,501");
    EXPECT_EQ(Placed({300, 441, 400, 500}), "300,441,400,500");
    EXPECT_EQ(section, SECTION_DETAIL_1);
}

TEST_F(PlaceRectTest, RectangleTallerThanItsSectionShrinks) {
    EXPECT_EQ(Placed({300, 100, 400, 700}), "300,41,400,400");
}

TEST_F(PlaceRectTest, RectangleEndsStrictlyBetweenTheSidesOfItsBar) {
    EXPECT_EQ(Placed({62, 100, 162, 200}), "63,100,163,200");
    EXPECT_EQ(Placed({63, 100, 163, 200}), "63,100,163,200");
    EXPECT_EQ(Placed({1900, 100, 1938, 200}), "1899,100,1937,200");
    EXPECT_EQ(Placed({-500, 100, -300, 200}), "63,100,263,200");
    EXPECT_EQ(Placed({62, 100, 3062, 200}), "-1063,100,1937,200"); // its width is kept
}

TEST_F(PlaceRectTest, RectangleInASectionWithoutRoomHasNoHeight) {
    Item("bar0").height = 20;
    EXPECT_EQ(Placed({300, 10, 400, 60}), "300,41,400,41");
}

TEST_F(PlaceRectTest, GroupAndRubberBandOnlyHaveTheirEdgesOrdered) {
    Snap(100);
    SelectGroup(900, 420, 50, 50);
    Focus() = {33, 450, -20, 390};
    EXPECT_EQ(PlaceRect(session), SECTION_PAGE_HEADER);
    EXPECT_EQ(Text(Focus()), "-20,390,33,450");
    session->form.SelectedItem = NOTHING_SELECTED;
    DesignerOf(session).PendingCommand = COMMAND_BAND;
    Focus() = {500, 900, 100, 401};
    EXPECT_EQ(PlaceRect(session), SECTION_DETAIL_1);
    EXPECT_EQ(Text(Focus()), "100,401,500,900");
}

TEST_F(PlaceRectTest, CornerSnapsByWholeTicksAcrossFromThePageAndDownFromTheCaption) {
    constexpr SnapCase cases[] = {
        {12, RULER_INCHES, 100, 94, 455, 456},       // one tick of 15.625
        {12, RULER_INCHES, 102, 109, 448, 456},      // x / g just above a half
        {12, RULER_INCHES, 101, 94, 447, 440},       //
        {32, RULER_INCHES, 100, 94, 456, 471},       // two ticks
        {12, RULER_CENTIMETRES, 100, 94, 446, 452},  // twelve ticks, 11.811
        {12, RULER_CENTIMETRES, 101, 106, 445, 440}, //
        {1, RULER_CENTIMETRES, 100, 100, 446, 446},  // one tick, 0.984252
        {8, RULER_INCHES, 117, 109, 456, 456},       // half a tick and more is one
        {12, RULER_INCHES, 20, 62, -9, 3},           // not left of the first bar
        {12, RULER_INCHES, -300, 62, -300, 0},       // nor above it
    };
    for (const SnapCase &row : cases) {
        Snap(row.grid, row.ruler);
        EXPECT_EQ(SnapX(session, row.x), row.snapped_x) << row.x << " by " << row.grid;
        EXPECT_EQ(SnapY(session, row.y, Row("bar11")), row.snapped_y)
            << row.y << " by " << row.grid;
    }
}

TEST_F(PlaceRectTest, GridBelowHalfATickPutsEverythingOnTheFirstPlace) {
    for (const int size : {0, 1, 7, -7}) {
        Snap(size);
        for (const int x : {-5, 0, 62, 300, 1900}) EXPECT_EQ(SnapX(session, x), 62);
        for (const int y : {-5, 0, 440, 441, 790}) EXPECT_EQ(SnapY(session, y, Row("bar11")), 440);
    }
    Snap(7);
    EXPECT_EQ(Placed({300, 600, 400, 650}), "63,441,163,491"); // and then inside the section
}

TEST_F(PlaceRectTest, AnyGridSizeGivesAPlace) {
    for (const int size : {INT_MIN, -1000, 40000, INT_MAX}) {
        Snap(size);
        EXPECT_EQ(SnapX(session, 0), 62) << size;
        EXPECT_EQ(SnapY(session, 440, Row("bar11")), 440) << size;
    }
}

TEST_F(PlaceRectTest, SnappedRectangleKeepsItsSizeAndFindsItsBar) {
    Snap(12);
    RECT place{100, 450, 213, 487};
    SnapRect(session, &place, -1);
    EXPECT_EQ(Text(place), "94,456,207,493");
    place = {100, 450, 213, 487};
    SnapRect(session, &place, Row("bar0")); // 40 + 26 * 15.625
    EXPECT_EQ(Text(place), "94,446,207,483");
}

TEST_F(PlaceRectTest, PlacedRectangleSnapsOnlyWhileSnappingIsOn) {
    Snap(12);
    EXPECT_EQ(Placed({100, 450, 200, 490}), "94,456,194,496");
    DesignerOf(session).SnapToGrid = 0;
    EXPECT_EQ(Placed({100, 450, 200, 490}), "100,450,200,490");
}
