#include "designer/undo.h"

#include "designer/item_table.h"
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
    EXPECT_EQ(session->form.Sections[SECTION_DETAIL_1].BarItem, Row("bar11"));
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
