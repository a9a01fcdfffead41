#include "designer/undo.h"

#include "designer/delete_item.h"
#include "designer/item_table.h"
#include "designer/new_items.h"
#include "designer/relocate.h"
#include "frame/memory.h"
#include "tests/support/laid_out_form.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

struct Undo : LaidOutForm {
    Undo() { MakeForm(); }

    bool HasImage() { return DesignerOf(session).UndoImage; }
    void FillTo(int rows) {
        while (session->form.TotalItems < rows)
            Add("more", ITEM_LABEL, SECTION_PAGE_FOOTER, 100, 1000, 10, 10);
    }
};

} // namespace

TEST_F(Undo, BringsBackTheRowsAndSelectsTheGroupOnce) {
    SaveUndo(session);
    EXPECT_EQ(DesignerOf(session).UndoCount, 9);
    Item("a").x = 300;
    session->form.Sections[SECTION_DETAIL_1].BarItem = 77;
    session->form.FormModified = 1;
    Select("b");
    RestoreUndo(session);
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
    EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_1].BarItem, Row("bar11"));
    EXPECT_EQ(session->form.SelectedItem, Row("group"));
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(DesignerOf(session).UndoCount, 0);
    Item("a").x = 300;
    Select("b");
    RestoreUndo(session); // there is no redo
    EXPECT_EQ(PlaceOf("a"), "300,100,200,50");
    EXPECT_EQ(session->form.SelectedItem, Row("b"));
}

TEST_F(Undo, ChangedNumberOfRowsOnlyDropsTheImage) {
    SaveUndo(session);
    Item("a").x = 300;
    ShiftItems(session, Row("c"), 1, SHIFT_REMOVE);
    Select("b");
    RestoreUndo(session);
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(PlaceOf("a"), "300,100,200,50");
    EXPECT_EQ(session->form.SelectedItem, Row("b"));
    EXPECT_EQ(session->form.TotalItems, 8);
}

TEST_F(Undo, ImageHoldsUpToSixtyTwoRows) {
    FillTo(62);
    SaveUndo(session);
    EXPECT_TRUE(HasImage());
    EXPECT_EQ(DesignerOf(session).UndoCount, 62);
    FillTo(63);
    MessageBoxes boxes;
    SaveUndo(session); // and the image of 62 rows is gone
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(DesignerOf(session).UndoCount, 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Undo, LaterImageTakesThePlaceOfTheEarlier) {
    SaveUndo(session);
    const int blocks = LiveBlocks();
    Item("a").x = 300;
    SaveUndo(session);
    EXPECT_EQ(LiveBlocks(), blocks);
    Item("a").x = 500;
    RestoreUndo(session);
    EXPECT_EQ(PlaceOf("a"), "300,100,200,50");
    EXPECT_EQ(LiveBlocks(), blocks - 1);
}

TEST_F(Undo, ImageWithoutMemoryIsNone) {
    MessageBoxes boxes;
    FailAllocation(1);
    SaveUndo(session);
    FailAllocation(0);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0].buttons, std::vector<int>{IDOK});
    EXPECT_NE(boxes.LastText(), "");
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(DesignerOf(session).UndoCount, 0);
}

TEST_F(Undo, DropsNothingWithoutADesigner) {
    BareSession run;
    DropUndo(run);
    EXPECT_EQ(run->designer, nullptr);
}

// The Delete key and a host's calls leave the image standing.

TEST_F(Undo, DeletedFieldDoesNotComeBackWhenARowTakesItsPlace) {
    AddFieldItem("n", SECTION_PAGE_FOOTER, 400, 1000, TYPE_NUMERIC);
    const int other = session.AddField(FIELD_DATA, "OTHER", TYPE_TEXT);
    SaveUndo(session);
    Select("n");
    DeleteItem(session);
    Item("a").x = 300;
    Add("m", ITEM_FIELD, SECTION_PAGE_FOOTER, 100, 1100, 10, 10).FieldIndex =
        static_cast<int16_t>(other);
    RestoreUndo(session);
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(Row("n"), -1);
    EXPECT_NE(Row("m"), -1);
    EXPECT_EQ(PlaceOf("a"), "300,100,200,50");
}

TEST_F(Undo, ImageThatNamesAnotherPictureFontOrSectionIsDropped) {
    struct {
        const char *name;
        int16_t ItemRecord::*member;
    } const cases[] = {{"a", &ItemRecord::FontIndex}, {"bar30", &ItemRecord::SectionIndex}};
    for (const auto &change : cases) {
        SaveUndo(session);
        ItemRecord &item = Item(change.name);
        const int16_t before = item.*change.member;
        item.*change.member = static_cast<int16_t>(before - 1);
        RestoreUndo(session);
        EXPECT_FALSE(HasImage());
        EXPECT_EQ(item.*change.member, before - 1) << change.name;
        item.*change.member = before;
    }
}

TEST_F(Undo, RowThatAHostAddedInPlaceOfADeletedOneStays) {
    SaveUndo(session);
    Select("a");
    DeleteItem(session);
    EXPECT_TRUE(HasImage());
    EXPECT_NE(AddNewLabelItem(session, "new", SECTION_DETAIL_1, 400, 500, 0), NO_ROW);
    RestoreUndo(session);
    EXPECT_EQ(Row("a"), -1);
    EXPECT_NE(Row("new"), -1);
}

TEST_F(Undo, RowsThatChangedPlacesComeBack) {
    AddFieldItem("n", SECTION_PAGE_FOOTER, 400, 1000, TYPE_NUMERIC);
    SaveUndo(session);
    RelocateItem(session, Row("n"), 0, -400);
    RelocateItem(session, Row("a"), 0, 500);
    RestoreUndo(session);
    EXPECT_EQ(PlaceOf("n").substr(0, 8), "400,1000");
    EXPECT_EQ(PlaceOf("a"), "100,100,200,50");
}
