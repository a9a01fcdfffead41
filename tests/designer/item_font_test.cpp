#include "designer/item_font.h"

#include <cstring>
#include <vector>

#include "designer/item_table.h"
#include "tests/support/failing_call.h"
#include "tests/support/font_rows.h"

using namespace tessarine;

namespace {

CHOOSEFONTA asked;
LOGFONTA asked_font;

BOOL WINAPI ChooseSmallRed(CHOOSEFONTA *choice) {
    asked = *choice;
    asked_font = *choice->lpLogFont;
    choice->iPointSize = 94;
    choice->rgbColors = RGB(255, 0, 0);
    return TRUE;
}

class ItemFont : public FontRows {
protected:
    static ItemRecord Placed(ItemRecord item, const RECT &place) {
        SetPlace(&item, place);
        return item;
    }
    void Put(int row, int x, int y) {
        session->form.Items[row] = Placed(session->form.Items[row], {x, y, x + 50, y + 40});
    }
};

} // namespace

TEST_F(ItemFont, ItemsWithAnEqualFontShareARow) {
    const LOGFONTA font = FontOfHeight(60);
    ItemRecord *first = Focus();
    ASSERT_EQ(FrFonts(session, &font), 1);
    ItemRecord *second = Focus();
    ASSERT_EQ(FrFonts(session, &font), 1);
    EXPECT_NE(+first->FontIndex, 0);
    EXPECT_EQ(+first->FontIndex, +second->FontIndex);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(ItemFont, LabelTakesTheSizeOfItsNewFont) {
    const LOGFONTA font = FontOfHeight(120);
    ItemRecord *label = Focus();
    FrFonts(session, &font);
    EXPECT_EQ(+label->height, static_cast<int>(Row(label->FontIndex).Height));
    EXPECT_GT(+label->width, 100);
    label->KeepSize = 1;
    label->width = 30;
    const LOGFONTA other = FontOfHeight(90);
    FrFonts(session, &other);
    EXPECT_EQ(+label->width, 30);
}

TEST_F(ItemFont, OnlyLabelsFieldsAndTheGroupTakeAFont) {
    const LOGFONTA font = FontOfHeight(60);
    session->form.SelectedItem = -1;
    EXPECT_EQ(FrFonts(session, &font), 1);
    for (const int type : {ITEM_LINE, ITEM_PICTURE, ITEM_BAR}) {
        ItemRecord *item = Focus(type);
        EXPECT_EQ(FrFonts(session, &font), 1);
        EXPECT_EQ(+item->FontIndex, 0);
    }
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemFont, ItemBehindTheTablesEndTakesNoFont) {
    const LOGFONTA font = FontOfHeight(60);
    const ItemRecord *item = Focus();
    --session->form.TotalItems;
    EXPECT_EQ(FrFonts(session, &font), 1);
    EXPECT_EQ(+item->FontIndex, 0);
}

TEST_F(ItemFont, PictureFieldTakesNoFont) {
    const LOGFONTA font = FontOfHeight(60);
    ItemRecord *item = Focus(ITEM_FIELD);
    item->FieldIndex = 1;
    session->form.Fields[1].ValueType = TYPE_PICTURE;
    EXPECT_EQ(FrFonts(session, &font), 1);
    EXPECT_EQ(+item->FontIndex, 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemFont, FieldGetsItsSampleAnew) {
    const LOGFONTA font = FontOfHeight(60);
    ItemRecord *item = Focus(ITEM_FIELD);
    item->FieldIndex = 2;
    item->width = 2000;
    ASSERT_EQ(FrFonts(session, &font), 1);
    EXPECT_NE(+item->FontIndex, 0);
    EXPECT_STREQ(item->LabelText, "-99,999,999");
}

TEST_F(ItemFont, LabelsAndFieldsOfTheGroupTakeItsFontAndColor) {
    const LOGFONTA font = FontOfHeight(60);
    const int label = AddItem(ITEM_LABEL, 0);
    const int field = AddItem(ITEM_FIELD, 0);
    const int line = AddItem(ITEM_LINE, 0);
    const int other = AddItem(ITEM_LABEL, 0);
    Put(label, 100, 5100);
    Put(field, 150, 5200);
    Put(line, 200, 5300);
    Put(other, 800, 5100);
    session->form.Items[field].FieldIndex = 2;
    session->form.Items[field].width = 2000;
    session->form.Items[other].GroupMark = 1; // left by an earlier one
    ItemRecord *group = Focus(ITEM_GROUP);
    group->TextColor = 0x1234;
    *group = Placed(*group, {90, 5090, 400, 5400});
    EXPECT_EQ(FrFonts(session, &font), 1);
    for (const int row : {label, field}) {
        EXPECT_NE(+session->form.Items[row].FontIndex, 0);
        EXPECT_EQ(+session->form.Items[row].TextColor, 0x1234u);
        EXPECT_EQ(+session->form.Items[row].GroupMark, 0);
    }
    EXPECT_STREQ(session->form.Items[field].LabelText, "-99,999,999");
    EXPECT_GT(+session->form.Items[label].width, 50);
    EXPECT_EQ(+session->form.Items[line].FontIndex, 0);
    EXPECT_EQ(+session->form.Items[line].GroupMark, 0);
    EXPECT_EQ(+session->form.Items[other].FontIndex, 0);
}

TEST_F(ItemFont, NothingIsRepaintedOrMarkedWhenTheDialogIsCancelled) {
    Focus();
    boxes.AnswerDialog("Font", IDCANCEL);
    EXPECT_EQ(FrFonts(session, nullptr), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemFont, LabelWithoutTextKeepsItsSize) {
    const LOGFONTA font = FontOfHeight(60);
    ItemRecord *label = Focus();
    *label->LabelText = 0;
    label->width = 77;
    EXPECT_EQ(FrFonts(session, &font), 1);
    EXPECT_EQ(+label->width, 77);
}

TEST_F(ItemFont, LabelThatWouldPassAFormsRangeKeepsItsSize) {
    const LOGFONTA font = FontOfHeight(400);
    ItemRecord *label = Focus();
    std::memset(label->LabelText, 'W', MAX_LABEL_TEXT);
    label->width = 77;
    label->height = 33;
    EXPECT_EQ(FrFonts(session, &font), 1);
    EXPECT_NE(+label->FontIndex, 0);
    EXPECT_EQ(+label->width, 77);
    EXPECT_EQ(+label->height, 33);
}

TEST_F(ItemFont, GroupTakesTheFontItselfSoThatItIsOfferedNextTime) {
    const LOGFONTA font = FontOfHeight(60);
    ItemRecord *group = Focus(ITEM_GROUP);
    ASSERT_EQ(FrFonts(session, &font), 1);
    ASSERT_NE(+group->FontIndex, 0);
    EXPECT_EQ(Row(group->FontIndex).LogFont.lfHeight, -60);
    EXPECT_EQ(+group->width, 0);
    boxes.AnswerDialog("Font", IDOK);
    ASSERT_EQ(FrFonts(session, nullptr), 1);
    EXPECT_NEAR(Row(group->FontIndex).LogFont.lfHeight, -60, 4);
}

TEST_F(ItemFont, CancelledDialogChangesNothing) {
    ItemRecord *label = Focus();
    bool asked = false;
    boxes.OnDialog("Font", [&](DialogDriver dialog) {
        asked = true;
        dialog.Press(IDCANCEL);
    });
    EXPECT_EQ(FrFonts(session, nullptr), 0);
    EXPECT_TRUE(asked);
    EXPECT_EQ(+label->FontIndex, 0);
}

TEST_F(ItemFont, ChosenFontHasItsPointSizeInFormUnits) {
    ItemRecord *label = Focus();
    boxes.AnswerDialog("Font", IDOK);
    EXPECT_EQ(FrFonts(session, nullptr), 1);
    // The default font's 11 points, as the dialog gives them in tenths.
    EXPECT_NEAR(Row(label->FontIndex).LogFont.lfHeight, -(110 * 250 / 720), 4);
}

TEST_F(ItemFont, DialogStartsFromTheItemInPixelsAndGivesAFontInFormUnits) {
    LOGFONTA font = FontOfHeight(60);
    font.lfWidth = 30;
    const ItemRecord *label = Focus();
    session->form.Items[session->form.SelectedItem].TextColor = 0x1234;
    ASSERT_EQ(FrFonts(session, &font), 1);
    const ReplacedCall call("ChooseFontA", ChooseSmallRed);
    EXPECT_EQ(FrFonts(session, nullptr), 1);
    EXPECT_EQ(asked.lStructSize, sizeof asked);
    EXPECT_EQ(asked.hwndOwner, session->Window);
    EXPECT_EQ(asked.Flags, static_cast<DWORD>(CF_BOTH | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT));
    EXPECT_EQ(asked.rgbColors, 0x1234u);
    EXPECT_EQ(asked_font.lfHeight, MulDiv(-60, session->drawing.LogPixelsY, 250));
    EXPECT_EQ(asked_font.lfWidth, MulDiv(30, session->drawing.LogPixelsX, 250));
    const LOGFONTA &chosen = Row(label->FontIndex).LogFont;
    EXPECT_EQ(chosen.lfHeight, -32); // of 9.4 points, truncated
    EXPECT_EQ(chosen.lfWidth, MulDiv(asked_font.lfWidth, 250, session->drawing.LogPixelsX));
    EXPECT_EQ(+label->TextColor, 255u);
}

TEST_F(ItemFont, ColorIsTheItemsAlsoWhenItsFontFindsNoRow) {
    FillTable();
    const ItemRecord *label = Focus();
    const ReplacedCall call("ChooseFontA", ChooseSmallRed);
    EXPECT_EQ(FrFonts(session, nullptr), 0);
    EXPECT_EQ(+label->TextColor, 255u);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(ItemFont, FontThatFindsNoRowIsRefused) {
    FillTable();
    ItemRecord *label = Focus();
    const LOGFONTA font = FontOfHeight(77);
    EXPECT_EQ(FrFonts(session, &font), 0);
    EXPECT_EQ(boxes.Log(), NoRowBoxes());
    EXPECT_EQ(+label->FontIndex, 0);
}

TEST_F(ItemFont, FontThatCannotBeMadeLeavesItsRowFree) {
    Focus();
    const LOGFONTA font = FontOfHeight(77);
    const int count = session->form.FontCount;
    const FailingCall fails("CreateFontIndirectA", CreateFontIndirectA, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(FrFonts(session, &font), 0);
    EXPECT_EQ(+Row(count).InUse, 0u);
}
