#include "designer/clipboard.h"

#include <gtest/gtest.h>

#include "commands.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "form/field_table.h"
#include "tests/support/clipboard_form.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

class ClipboardPaste : public ClipboardForm {
protected:
    const ItemRecord &Pasted() const { return session->form.Items[session->form.SelectedItem]; }
    const FieldRecord &FieldOf(const ItemRecord &item) const {
        return session->form.Fields[item.FieldIndex];
    }
    int Calculation() const { return RowOfType(ITEM_FIELD) + 1; }
    // All labels of this text.
    int Labels(const std::string &text) const {
        int count = 0;
        for (int row = 0; row < session->form.TotalItems; ++row)
            count += session->form.Items[row].ItemType == ITEM_LABEL &&
                     session->form.Items[row].LabelText == text;
        return count;
    }
    void TakeAllFields() { session->form.FieldCapacity = session->form.FieldCount; }
};

} // namespace

TEST_F(ClipboardPaste, OneItemIsPastedSelected) {
    Open();
    Copy(Row("Gamma"));
    PasteAt(500, 100);
    EXPECT_EQ(Pasted().ItemType, ITEM_LABEL);
    EXPECT_STREQ(Pasted().LabelText, "Gamma");
    EXPECT_EQ(Pasted().SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(Pasted().width, 200);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    EXPECT_EQ(DesignerOf(session).HoverOnly, 1u);
    EXPECT_EQ(WhatIsWrong(session) + WhatIsUnsorted(session), "");
}

TEST_F(ClipboardPaste, EachItemOfABlockIsPlacedByItselfAndNoneIsSelected) {
    Open();
    ChooseAll();
    Copy(GroupRow(session));
    const int items = session->form.TotalItems;
    DesignerOf(session).SnapToGrid = 0;
    PasteAt(100, 60);
    EXPECT_EQ(session->form.TotalItems, items + 5);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(Labels("Alpha"), 2);
    EXPECT_EQ(Labels("Gamma"), 2);
    EXPECT_EQ(WhatIsWrong(session) + WhatIsUnsorted(session), "");
}

TEST_F(ClipboardPaste, AFieldGetsARowOfItsOwn) {
    Open();
    const int row = RowOfType(ITEM_FIELD);
    const int field = session->form.Items[row].FieldIndex;
    Copy(row);
    const int fields = FieldsInUse();
    PasteAt(300, 700);
    EXPECT_EQ(FieldsInUse(), fields + 1);
    EXPECT_NE(Pasted().FieldIndex, field);
    EXPECT_STREQ(FieldOf(Pasted()).FieldName, "NAME");
    EXPECT_EQ(+FieldOf(Pasted()).InUse, 1);
}

TEST_F(ClipboardPaste, PastingTwiceMakesNewFieldRowsAndNewCopiesOfTheExpression) {
    Open();
    Copy(Calculation());
    const int fields = FieldsInUse();
    const int held = References();
    PasteAt(300, 700);
    const int first = Pasted().FieldIndex;
    PasteAt(300, 800);
    EXPECT_NE(Pasted().FieldIndex, first);
    EXPECT_EQ(FieldsInUse(), fields + 2);
    EXPECT_EQ(References(), held + 4);
    EXPECT_EQ(+FieldOf(Pasted()).FieldTokens[0], constant);
    EXPECT_EQ(+FieldOf(Pasted()).FieldTokens[3], CELL_END);
}

TEST_F(ClipboardPaste, ReferencesComeOutEvenWhenAllThatWasPastedGoes) {
    Open();
    Copy(Calculation());
    PasteAt(300, 700);
    DeleteItem(session);
    ClearClip(session);
    EXPECT_EQ(References(), 2);
    Choose(Calculation());
    DeleteItem(session);
    EXPECT_EQ(+session->form.Fields[constant].InUse, 0);
}

TEST_F(ClipboardPaste, AnOperandThatNobodySharesIsCopiedToo) {
    FormBuilder form = Builder();
    const int amount = form.Field(FIELD_DATA, "AMOUNT", TYPE_NUMERIC);
    form.Store({amount}, form.fields[2].FieldTokens);
    StartOn(form);
    Copy(Calculation());
    const int fields = FieldsInUse();
    PasteAt(300, 700);
    EXPECT_EQ(FieldsInUse(), fields + 2);
    EXPECT_NE(+FieldOf(Pasted()).FieldTokens[0], amount);
}

TEST_F(ClipboardPaste, ACutCalculationIsPastedWhole) {
    Open();
    Cut(Calculation());
    EXPECT_EQ(References(), 2); // the store's
    PasteAt(300, 700);
    EXPECT_EQ(References(), 4);
    EXPECT_STREQ(FieldOf(Pasted()).FieldName, "CALC->SUM");
}

TEST_F(ClipboardPaste, AnItemThatCrossesTheSectionsEdgeIsHeldInside) {
    Open();
    Copy(Row("Gamma"));
    PasteAt(300, Bar(SECTION_DETAIL_1).y - 10);
    EXPECT_EQ(Pasted().SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_LE(Pasted().y + Pasted().height, Bar(SECTION_DETAIL_1).y);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(ClipboardPaste, TheShortageOfFieldRowsThatTheCheckPassesShowsWhenTheItemIsPlaced) {
    Open();
    ChooseAll();
    session->form.Items[GroupRow(session)].y = 500;
    Copy(GroupRow(session)); // label, field, calculation, line
    TakeAllFields();
    const int items = session->form.TotalItems;
    PasteAt(300, 600);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Ran out of field table!", {IDOK}}}));
    EXPECT_EQ(session->form.TotalItems, items + 2); // the field as a label is the last
    EXPECT_EQ(WhatIsWrong(session), "");
    int fields = 0;
    for (int row = 0; row < session->form.TotalItems; ++row)
        fields += session->form.Items[row].ItemType == ITEM_FIELD;
    EXPECT_EQ(fields, 2);
}

TEST_F(ClipboardPaste, AnExpressionThatFindsNoRowMakesALabelAndKeepsNoField) {
    FormBuilder form = Builder();
    const int amount = form.Field(FIELD_DATA, "AMOUNT", TYPE_NUMERIC);
    form.Store({4, CELL_FIRST_OPERATOR + 2, amount}, form.fields[2].FieldTokens);
    StartOn(form);
    Copy(Calculation());
    const int slot = NewFieldSlot(session);
    TakeAllFields();
    const int fields = FieldsInUse();
    PasteAt(300, 700);
    EXPECT_EQ(boxes.LastText(), "Ran out of field table(CopyCreateExp)!");
    EXPECT_EQ(Pasted().ItemType, ITEM_LABEL);
    EXPECT_EQ(FieldsInUse(), fields);
    EXPECT_EQ(+session->form.Fields[slot].InUse, 0);
}

TEST_F(ClipboardPaste, AnItemTableThatFilledUpMeanwhileTakesNoMore) {
    Open();
    Copy(Row("Gamma"));
    ItemRecord *items = session->form.Items;
    while (session->form.TotalItems < MAX_ITEMS) {
        items[session->form.TotalItems] = items[session->form.TotalItems - 1];
        ++session->form.TotalItems;
    }
    PasteAt(300, 700);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Item Table Full!"});
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
    session->form.TotalItems = 8;
}

TEST_F(ClipboardPaste, ATextWhoseFontRowIsGoneTakesTheDefaultFont) {
    Open();
    Item("Gamma").FontIndex = 5;
    Copy(Row("Gamma"));
    PasteAt(300, 700);
    EXPECT_EQ(Pasted().FontIndex, 0);
}

TEST_F(ClipboardPaste, APictureKeepsItsRowWhileACopyHoldsIt) {
    Open();
    ItemRecord &item = Item("Gamma");
    item.ItemType = ITEM_PICTURE;
    item.FontIndex = 3;
    session->form.Fonts[3].InUse = session->form.Fonts[3].IsPicture = 1;
    session->form.FontCount = 4;
    Cut(Row("Gamma"));
    EXPECT_EQ(Row("Gamma"), -1);
    EXPECT_EQ(+session->form.Fonts[3].InUse, 1u);
    PasteAt(300, 700);
    EXPECT_EQ(Pasted().ItemType, ITEM_PICTURE);
    EXPECT_EQ(Pasted().FontIndex, 3);
    ClearClip(session);
    DeleteItem(session);
    EXPECT_EQ(+session->form.Fonts[3].InUse, 0u);
}

// ---- the begin --------------------------------------------------------------------------------

TEST_F(ClipboardPaste, ARectangleOfTheBlockFollowsThePointer) {
    Open();
    Copy(Row("Gamma"));
    Choose(Row("Alpha"));
    BeginPaste(session);
    const Designer &designer = DesignerOf(session);
    EXPECT_EQ(designer.PendingCommand, COMMAND_PASTE);
    EXPECT_EQ(designer.HoverOnly, 0u);
    EXPECT_EQ(designer.FocusRect.right - designer.FocusRect.left, 200);
    EXPECT_EQ(designer.FocusRect.bottom - designer.FocusRect.top, 50);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
}

// Its left edge is the top of a row that lies above the first.
TEST_F(ClipboardPaste, ABlockWhoseLeftEdgeIsBehindItsRightKeepsItsNegativeWidth) {
    Open();
    ChooseAll();
    session->form.Items[GroupRow(session)].height = 3000;
    Item("Alpha").y = 2600;
    session->form.Items[RowOfType(ITEM_LINE)].y = 2550;
    Copy(GroupRow(session));
    BeginPaste(session);
    const Designer &designer = DesignerOf(session);
    EXPECT_EQ(designer.ClipWidth, 1500 - 2550);
    EXPECT_EQ(designer.FocusRect.right - designer.FocusRect.left, 1500 - 2550);
    EXPECT_EQ(designer.FocusVisible, 0u);
    EXPECT_EQ(designer.PendingCommand, COMMAND_PASTE);
}

TEST_F(ClipboardPaste, APressPutsTheBlockDown) {
    Open();
    Copy(Row("Gamma"));
    BeginPaste(session);
    MoveTo(600, 300);
    PressAt(600, 300);
    ReleaseAt(600, 300);
    EXPECT_EQ(Labels("Gamma"), 2);
    EXPECT_EQ(Pasted().SectionIndex, SECTION_PAGE_HEADER);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
}

TEST_F(ClipboardPaste, TheMenusCommandsCutCopyAndPaste) {
    Open();
    Choose(Row("Gamma"));
    Command(COMMAND_CUT);
    EXPECT_EQ(Labels("Gamma"), 0);
    Command(COMMAND_PASTE);
    PressAt(700, 250);
    ReleaseAt(700, 250);
    EXPECT_EQ(Labels("Gamma"), 1);
    Command(COMMAND_COPY);
    Command(COMMAND_PASTE);
    PressAt(700, 700);
    EXPECT_EQ(Labels("Gamma"), 2);
    EXPECT_EQ(Pasted().SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(WhatIsWrong(session) + WhatIsUnsorted(session), "");
}

TEST_F(ClipboardPaste, AnEmptyStoreBeginsNothing) {
    Open();
    Choose(Row("Alpha"));
    BeginPaste(session);
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
}

TEST_F(ClipboardPaste, APendingCommandGoesOn) {
    Open();
    Copy(Row("Gamma"));
    DesignerOf(session).PendingCommand = COMMAND_NEW_LINE;
    BeginPaste(session);
    EXPECT_EQ(DesignerOf(session).PendingCommand, COMMAND_NEW_LINE);
}

TEST_F(ClipboardPaste, AnItemTableWithoutRoomForTheBlockRefuses) {
    Open();
    ChooseAll();
    Copy(GroupRow(session));
    const int items = session->form.TotalItems;
    session->form.TotalItems = MAX_ITEMS - 4;
    BeginPaste(session);
    session->form.TotalItems = items;
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Item Table Full!", {IDOK}}}));
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
}

TEST_F(ClipboardPaste, TheFieldTableIsCheckedByTheFormsOwnFirstRows) {
    FormBuilder form;
    form.Section(SECTION_DETAIL_1, 400);
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    form.FieldItem(SECTION_DETAIL_1, 200, 50, 200, 50, name);
    form.FieldItem(SECTION_DETAIL_1, 500, 50, 200, 50, form.Field(FIELD_DATA, "CITY", TYPE_TEXT));
    form.Item(ITEM_GROUP, SECTION_DETAIL_1, 0, 800, 0, 0);
    StartOn(form);
    Copy(1);
    FieldRecord *fields = session->form.Fields;
    const int count = session->form.FieldCount;
    session->form.FieldCount = MAX_FIELDS;
    for (int row = 0; row < MAX_FIELDS; ++row) fields[row].InUse = 1;
    BeginPaste(session); // row 0 of the form is a bar
    EXPECT_TRUE(boxes.Log().empty());
    DesignerOf(session).PendingCommand = IDLE;
    ChooseAll();
    session->form.Items[GroupRow(session)].height = 100;
    CopyItems(session, 0); // two fields; rows 0 and 1 hold one
    BeginPaste(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "Field Table Full!", {IDOK}}}));
    EXPECT_EQ(DesignerOf(session).PendingCommand, IDLE);
    session->form.FieldCount = count;
}

TEST_F(ClipboardPaste, TheMenuOffersWhatThisWindowHasCopied) {
    Open();
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PASTE));
    Copy(Row("Gamma"));
    OpenMenu();
    EXPECT_TRUE(MenuEnabled(COMMAND_PASTE));
    ASSERT_TRUE(OpenClipboard(host.Get()));
    EmptyClipboard();
    CloseClipboard();
    OpenMenu();
    EXPECT_FALSE(MenuEnabled(COMMAND_PASTE));
}
