#include "designer/open.h"

#include "frame/session_table.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

class OpenDesigner : public DesignerSession {};

} // namespace

TEST_F(OpenDesigner, NewFormStandsInAWindowOfItsOwn) {
    ASSERT_EQ(StartNew(), CODE_DONE);
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(params.DesignerOpen, 1U);
    EXPECT_EQ(session->form.TotalItems, 3);
    EXPECT_EQ(session->State, STATE_FORM_OPEN);
}

TEST_F(OpenDesigner, FormOfAFileOpensWithItsFirstBarSelected) {
    ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
    EXPECT_EQ(session->form.TotalItems, 6);
    EXPECT_EQ(session->form.SelectedItem, 0);
    EXPECT_EQ(Item("Gamma").SectionIndex, SECTION_DETAIL_1);
}

TEST_F(OpenDesigner, TablesAreFoundBehindTheBlocksOfItsHead) {
    ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
    const auto *head = reinterpret_cast<const SessionHead *>(session);
    EXPECT_EQ(+head->Desk.Items, session->form.Items);
    EXPECT_EQ(*head->Desk.TotalItems, 6);
    EXPECT_EQ(+head->Desk.TextBuffer, +session->TextBuffer);
    EXPECT_EQ(+head->Desk.AccelTable, nullptr);
}

TEST_F(OpenDesigner, FieldItemsWithoutASampleGetOneAndTheFormIsUnchanged) {
    FormBuilder form = TwoSections();
    const int number = form.Field(FIELD_DATA, "N", TYPE_TEXT, 5);
    form.FieldItem(SECTION_DETAIL_1, 300, 200, 500, 50, number).LabelText[0] = 0;
    CopyText("kept", form.FieldItem(SECTION_DETAIL_1, 900, 200, 500, 50, number).LabelText, 5);
    form.Label(SECTION_DETAIL_1, 300, 300, 200, 50, "");
    ASSERT_EQ(StartOn(form), CODE_DONE);
    EXPECT_NE(Row("xxxxX"), -1);
    EXPECT_NE(Row("kept"), -1);
    EXPECT_NE(Row(""), -1);
    EXPECT_EQ(session->form.FormModified, 0U);
    EXPECT_EQ(boxes.Log().size(), 0U);
}
