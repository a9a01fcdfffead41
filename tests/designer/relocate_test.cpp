#include "designer/relocate.h"

#include "commands.h"
#include "designer/item_table.h"
#include "designer/undo.h"
#include "tests/support/entry_code.h"
#include "tests/support/failing_call.h"
#include "tests/support/item_order.h"
#include "tests/support/laid_out_form.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

struct Relocate : LaidOutForm {
    Relocate() { MakeForm(); }

    std::string Move(const std::string &name, int dx, int dy) {
        const int row = RelocateItem(session, Row(name), dx, dy);
        EXPECT_EQ(row, Row(name));
        EXPECT_EQ(WhatIsUnsorted(session), "") << Names();
        return PlaceOf(name);
    }
    int SectionOf(const std::string &name) { return Item(name).SectionIndex; }
    // A drag of what is selected to a corner.
    void DragTo(int x, int y) {
        const ItemRecord &item = *Selected(session);
        Focus() = {x, y, x + item.width, y + item.height};
        MoveItem(session);
    }
};

struct SummaryCase {
    const char *what;
    int value_type;
    int kind;
    int from;
    int to;
    int before;
    int after;
};

// Turns the group into a label while a block is freed.
Session *struck = nullptr;
HGLOBAL(WINAPI *real_free)(HGLOBAL);
HGLOBAL WINAPI StrikeGroup(HGLOBAL block) {
    for (int row = 0; struck && row < struck->form.TotalItems; ++row)
        if (struck->form.Items[row].ItemType == ITEM_GROUP)
            struck->form.Items[row].ItemType = ITEM_LABEL;
    return real_free(block);
}

} // namespace

TEST_F(Relocate, ItemTakesItsPlaceInTheOrder) {
    EXPECT_EQ(Move("a", 0, 105), "100,205,200,50");
    EXPECT_EQ(Names(), "bar0 group b c a bar11 d bar30 e");
    EXPECT_EQ(Move("a", 0, -105), "100,100,200,50");
    EXPECT_EQ(Names(), "bar0 group a b c bar11 d bar30 e");
    EXPECT_EQ(Move("a", 500, 10), "600,110,200,50");
    EXPECT_EQ(Names(), "bar0 group b a c bar11 d bar30 e");
}

TEST_F(Relocate, ItemMovesToAnotherSectionAndBack) {
    EXPECT_EQ(Move("a", 0, 800), "100,900,200,50");
    EXPECT_EQ(Names(), "bar0 group b c bar11 d bar30 a e");
    EXPECT_EQ(SectionOf("a"), SECTION_PAGE_FOOTER);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_FOOTER].BarItem, 6);
    EXPECT_EQ(Move("a", 0, -300), "100,600,200,50");
    EXPECT_EQ(SectionOf("a"), SECTION_DETAIL_1);
}

TEST_F(Relocate, ItemIsHeldInTheSectionOfItsTop) {
    EXPECT_EQ(Move("a", 0, 280), "100,350,200,50");
    EXPECT_EQ(Move("a", 0, 60), "100,441,200,50");
    EXPECT_EQ(SectionOf("a"), SECTION_DETAIL_1);
}

TEST_F(Relocate, NoDistanceChangesNothingNotEvenByTheGrid) {
    Snap(12);
    session->form.SelectedItem = Row("d");
    Focus() = {1, 2, 3, 4};
    EXPECT_EQ(Move("a", 0, 0), "100,100,200,50");
    EXPECT_EQ(Focus().bottom, 4);
    EXPECT_EQ(Move("a", 1, 0), "94,103,200,50"); // any distance snaps both ways
}

TEST_F(Relocate, SelectionIsPutBack) {
    SelectGroup(0, 41, 2000, 100);
    EXPECT_EQ(Move("a", 0, -95), "100,41,200,50"); // an item all the same: held below the caption
    EXPECT_EQ(session->form.SelectedItem, 1);
    session->form.SelectedItem = NOTHING_SELECTED;
    Move("a", 5, 5);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
}

TEST_F(Relocate, GroupIsNotHeldBySections) {
    SelectGroup(100, 300, 200, 200);
    Snap(100);
    EXPECT_EQ(Move("group", 7, 90), "107,390,200,200");
    EXPECT_EQ(SectionOf("group"), SECTION_PAGE_HEADER);
    EXPECT_EQ(Move("group", 0, 20), "107,410,200,200");
    EXPECT_EQ(SectionOf("group"), SECTION_DETAIL_1);
    EXPECT_EQ(Names(), "bar0 a b c bar11 group d bar30 e");
    EXPECT_EQ(Move("group", 0, 2000), "107,2410,200,200");
    EXPECT_EQ(SectionOf("group"), SECTION_PAGE_FOOTER);
}

TEST_F(Relocate, GroupOnABarsCornerStandsBehindTheBar) {
    SelectGroup(62, 500, 100, 100);
    EXPECT_EQ(Move("group", 0, -100), "62,400,100,100");
    EXPECT_EQ(SectionOf("group"), SECTION_DETAIL_1);
    EXPECT_EQ(Names(), "bar0 a b c bar11 group d bar30 e");
    RelocateItem(session, Row("group"), -30, -500);
    EXPECT_EQ(PlaceOf("group"), "32,-100,100,100");
    EXPECT_EQ(SectionOf("group"), SECTION_PAGE_HEADER);
    EXPECT_EQ(Names(), "bar0 group a b c bar11 d bar30 e");
}

TEST_F(Relocate, GroupLooksForItsPlaceByItsOwnNewRectangle) {
    SelectGroup(63, 900, 100, 100);
    Focus() = {0, 1100, 10, 1110};
    EXPECT_EQ(Move("group", 0, -300), "63,600,100,100");
    EXPECT_EQ(Names(), "bar0 a b c bar11 d group bar30 e");
}

TEST_F(Relocate, GroupWhoseOwnRowIsLastBeforeTheStopTakesTheSectionAbove) {
    ShiftItems(session, Row("d"), 1, SHIFT_REMOVE);
    SelectGroup(63, 450, 100, 100);
    Item("group").SectionIndex = SECTION_PAGE_HEADER; // stale
    EXPECT_EQ(Move("group", 0, 10), "63,460,100,100");
    EXPECT_EQ(SectionOf("group"), SECTION_DETAIL_1);
}

TEST_F(Relocate, SummariesFollowTheFieldIntoAndOutOfFooters) {
    constexpr int header = 100, detail = 700, footer = 1000;
    const SummaryCase cases[] = {
        {"number into a footer", TYPE_NUMERIC, FIELD_DATA, detail, footer, 0, SUMMARY_TOTAL},
        {"double into a footer", TYPE_DOUBLE, FIELD_CALC, detail, footer, 0, SUMMARY_TOTAL},
        {"system number", TYPE_NUMERIC, FIELD_SYSTEM, detail, footer, 0, SUMMARY_VALUE},
        {"text", TYPE_TEXT, FIELD_DATA, detail, footer, 0, SUMMARY_VALUE},
        {"average in its footer", TYPE_NUMERIC, FIELD_DATA, footer, footer + 50, SUMMARY_AVERAGE,
         SUMMARY_AVERAGE},
        {"total dragged out", TYPE_NUMERIC, FIELD_DATA, footer, detail, SUMMARY_TOTAL, 0},
        {"count of texts dragged out", TYPE_TEXT, FIELD_DATA, footer, header, SUMMARY_COUNT, 0},
        {"total outside", TYPE_NUMERIC, FIELD_DATA, detail, header, SUMMARY_TOTAL, 0},
    };
    for (const SummaryCase &row : cases) {
        AddFieldItem(row.what, SECTION_PAGE_FOOTER, 1200, 1100, row.value_type, row.kind);
        RelocateItem(session, Row(row.what), 0, row.from - 1100);
        FieldOf(row.what).SummaryType = static_cast<int16_t>(row.before);
        RelocateItem(session, Row(row.what), 0, row.to - row.from);
        EXPECT_EQ(+FieldOf(row.what).SummaryType, row.after) << row.what;
    }
}

TEST_F(Relocate, PlaceBeyondSixteenBitsIsRefused) {
    SelectGroup(32000, 300, 200, 200);
    EXPECT_EQ(Move("group", 1000, 0), "32000,300,200,200");
    Item("bar30").y = 32600;
    Item("e").y = 32700;
    EXPECT_EQ(Move("a", 0, 32740), "100,100,200,50");
    EXPECT_EQ(SectionOf("a"), SECTION_PAGE_HEADER);
}

TEST_F(Relocate, DraggedItemIsPlacedSelectedAndTheFormChanged) {
    Select("a");
    SaveUndo(session);
    DragTo(150, 380);
    EXPECT_EQ(PlaceOf("a"), "150,350,200,50");
    EXPECT_EQ(session->form.SelectedItem, Row("a"));
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(DesignerOf(session).UndoImage, nullptr);
}

TEST_F(Relocate, LessThanAPixelIsNoMoveAndKeepsTheUndoImage) {
    Select("a");
    SaveUndo(session);
    DesignerOf(session).PaintMode = PAINT_BORDERS;
    DragTo(101, 99);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_EQ(DesignerOf(session).PaintMode, PAINT_CANVAS);
    EXPECT_NE(DesignerOf(session).UndoImage, nullptr);
    DragTo(100, 98); // 250 / 96 in whole numbers
    EXPECT_EQ(PlaceOf("a"), "100,98,200,50");
    DragTo(101, 96); // what counts down takes the rest along
    EXPECT_EQ(PlaceOf("a"), "101,96,200,50");
}

TEST_F(Relocate, PixelSmallerThanAUnitStillLeavesAClickNoMove) {
    session->drawing.LogPixelsX = session->drawing.LogPixelsY = 300;
    Select("a");
    DragTo(100, 100);
    EXPECT_EQ(session->form.FormModified, 0u);
    DragTo(101, 100);
    EXPECT_EQ(PlaceOf("a"), "101,100,200,50");
}

TEST_F(Relocate, NothingSelectedNothingMoves) {
    session->form.SelectedItem = NOTHING_SELECTED;
    Focus() = {1, 2, 3, 4};
    MoveItem(session);
    CenterItem(session);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_EQ(Focus().right, 3);
}

TEST_F(Relocate, GroupMovesWithItsMembers) {
    SelectGroup(90, 90, 450, 100); // a and b
    DragTo(110, 140);
    EXPECT_EQ(PlaceOf("group"), "110,140,450,100");
    EXPECT_EQ(PlaceOf("a"), "120,150,200,50");
    EXPECT_EQ(PlaceOf("b"), "420,160,100,60");
    EXPECT_EQ(PlaceOf("c"), "700,200,80,40");
    EXPECT_EQ(session->form.SelectedItem, Row("group"));
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsUnsorted(session), "");
}

TEST_F(Relocate, GroupLosesItsShapeAtASectionsEdge) {
    SelectGroup(90, 90, 450, 100); // a ends at 150, b at 170
    DragTo(90, 325);               // by 235
    EXPECT_EQ(PlaceOf("a"), "100,335,200,50");
    EXPECT_EQ(PlaceOf("b"), "400,340,100,60"); // held back by 5
    DragTo(90, 395);
    EXPECT_EQ(PlaceOf("a"), "100,441,200,50"); // into the next section
    EXPECT_EQ(PlaceOf("b"), "400,441,100,60");
    EXPECT_EQ(PlaceOf("group"), "90,395,450,100");
}

TEST_F(Relocate, GroupMayBeMovedOutOfTheForm) {
    SelectGroup(90, 90, 450, 100);
    DragTo(-60, -80);
    EXPECT_EQ(PlaceOf("group"), "-60,-80,450,100");
    EXPECT_EQ(SectionOf("group"), SECTION_PAGE_HEADER);
    EXPECT_EQ(PlaceOf("a"), "63,41,200,50");
    EXPECT_EQ(PlaceOf("b"), "250,41,100,60");
    EXPECT_EQ(session->form.SelectedItem, Row("group"));
}

TEST_F(Relocate, GroupThatIsGoneBehindItsMoveIsFatal) {
    MessageBoxes boxes;
    SelectGroup(90, 90, 450, 100);
    SaveUndo(session); // dropped by the move
    struck = session;
    void *real = ReplaceImport("GlobalFree", reinterpret_cast<void *>(StrikeGroup));
    real_free = reinterpret_cast<decltype(real_free)>(real);
    EXPECT_EQ(EntryCode(session, [&] { DragTo(90, 200); }), CODE_FORM_CONTRADICTION);
    ReplaceImport("GlobalFree", real);
    struck = nullptr;
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"Fatal Error", "Group Item Missing(MoveItem)", {IDOK}}}));
    Item("group").ItemType = ITEM_GROUP;
}

TEST_F(Relocate, CenteredItemStandsInTheMiddleOfItsSection) {
    Item("bar11").width = 938;
    Select("d");
    CenterItem(session);
    EXPECT_EQ(PlaceOf("d"), "431,500,200,50");
    Select("c");
    CenterItem(session);
    EXPECT_EQ(PlaceOf("c"), "960,200,80,40");
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(Relocate, CenteredGroupTakesItsMembersAlong) {
    SelectGroup(90, 90, 450, 100);
    CenterItem(session);
    EXPECT_EQ(PlaceOf("group"), "775,90,450,100");
    EXPECT_EQ(PlaceOf("a"), "785,100,200,50");
}

TEST_F(Relocate, BarIsNeitherMovedNorCentered) {
    Select("bar11");
    CenterItem(session);
    DragTo(100, 600);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_EQ(PlaceOf("bar11"), "62,400,1876,400");
}
