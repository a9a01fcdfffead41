#include "designer/new_items.h"

#include <string>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "designer/resize.h"
#include "tests/support/three_sections.h"

using namespace tessarine;

namespace {

class NewItems : public ThreeSections {
protected:
    int Label(const std::string &text, int section, int x, int y, int font = 0) {
        return AddNewLabelItem(session, text.c_str(), section, x, y, font);
    }
    int Line(int section, const RECT &place, int angle = 1, int width = 7) {
        return AddNewLineItem(session, section, angle, place, width);
    }
    int BarRow(int section) { return session->form.Sections[section].BarItem; }
    // Room for what a routine puts in front of a text.
    char *Typed(const std::string &text) {
        typed_ = text;
        typed_.resize(text.size() + 7);
        return typed_.data();
    }
    FieldRecord &SelectField(int kind, const std::string &name) {
        const int field = session.AddField(kind, name, TYPE_NUMERIC);
        AddItem(ITEM_FIELD, SECTION_PAGE_FOOTER, 100, 900).FieldIndex = static_cast<int16_t>(field);
        session->form.SelectedItem = session->form.TotalItems - 1;
        return session->form.Fields[field];
    }
    ItemRecord &SelectLabel(const std::string &text) {
        const int row = Label(text, SECTION_DETAIL_1, 100, 500);
        session->form.SelectedItem = row;
        session->form.FormModified = 0;
        return Item(row);
    }

    std::string typed_;
};

} // namespace

TEST_F(NewItems, LabelStandsAtItsPlaceWithTheSizeOfItsText) {
    const int row = Label("Total", SECTION_DETAIL_1, 100, 500);
    ASSERT_EQ(row, 3);
    const ItemRecord &item = Item(row);
    EXPECT_EQ(+item.ItemType, ITEM_LABEL);
    EXPECT_STREQ(item.LabelText, "Total");
    EXPECT_EQ(+item.x, 100);
    EXPECT_EQ(+item.y, 500);
    EXPECT_EQ(+item.width, 5 * CHARACTER + 20);
    EXPECT_EQ(+item.height, LINE);
    EXPECT_EQ(+item.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(+item.ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_EQ(+item.KeepSize, 0);
    EXPECT_EQ(session->form.SelectedItem, BarRow(SECTION_DETAIL_1));
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(NewItems, LabelOfThreeLinesIsThreeLinesHighAndAsWideAsTheWidest) {
    const ItemRecord &item = Item(Label("ab\r\nabcdef\r\nabc", SECTION_DETAIL_1, 100, 500));
    EXPECT_EQ(+item.height, 3 * LINE);
    EXPECT_EQ(+item.width, 6 * CHARACTER + 20);
}

TEST_F(NewItems, LabelOfCarriageReturnsAloneIsAsWideAsItsInset) {
    const ItemRecord &item = Item(Label("\r\r\r", SECTION_DETAIL_1, 100, 500));
    EXPECT_EQ(+item.width, 20);
    EXPECT_EQ(+item.height, LINE);
}

TEST_F(NewItems, LabelTextIsCutAt300Characters) {
    Bar(SECTION_DETAIL_1).width = 20000;
    const ItemRecord &item = Item(Label(std::string(400, 'x'), SECTION_DETAIL_1, 100, 500));
    EXPECT_EQ(item.LabelText, std::string(300, 'x'));
    EXPECT_EQ(+item.width, 300 * CHARACTER + 20);
}

TEST_F(NewItems, FontRowOfALabelMeasuresAlone) {
    session->form.Fonts[3] = session->form.Fonts[0];
    session->form.Fonts[3].Height = 90;
    session->form.Fonts[3].CharWidth['x'] = 30;
    const ItemRecord &item = Item(Label("xx", SECTION_DETAIL_1, 100, 500, 3));
    EXPECT_EQ(+item.width, 2 * 30 + 20);
    EXPECT_EQ(+item.height, 90);
    EXPECT_EQ(+item.FontIndex, 0);
    for (const int font : {-1, MAX_FONTS + 0})
        EXPECT_EQ(Label("xx", SECTION_DETAIL_1, 100, 500, font), -1);
}

TEST_F(NewItems, LabelBeyondTheSectionsRightEdgeIsRefusedAndTheBarStaysSelected) {
    const int end = BAR_X + BAR_WIDTH - (5 * CHARACTER + 20);
    EXPECT_EQ(Label("Total", SECTION_DETAIL_1, end + 1, 500), -1);
    EXPECT_EQ(session->form.SelectedItem, BarRow(SECTION_DETAIL_1));
    EXPECT_EQ(session->form.TotalItems, 4);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_GE(Label("Total", SECTION_DETAIL_1, end, 500), 0);
}

TEST_F(NewItems, LabelThatOverrunsItsSectionMovesWhatLiesBelowByTwiceItsHeight) {
    AddItem(ITEM_LABEL, SECTION_PAGE_FOOTER, 100, 900);
    const int low = Label("Low", SECTION_DETAIL_1, 100, 760);
    const int high = Label("High", SECTION_DETAIL_1, 100, 500);
    Item(1).y = 770; // the group stays
    const int row = Label("New", SECTION_DETAIL_1, 300, 761);
    EXPECT_EQ(+Item(row).y, 761);
    EXPECT_EQ(+Item(high).y, 500);
    EXPECT_EQ(+Item(low + 1).y, 760);
    EXPECT_EQ(+Item(1).y, 770);
    EXPECT_EQ(+Bar(SECTION_DETAIL_1).height, 400 + 2 * LINE);
    EXPECT_EQ(+Bar(SECTION_DETAIL_1).y, 400);
    EXPECT_EQ(+Bar(SECTION_PAGE_FOOTER).y, 800 + 2 * LINE);
    EXPECT_EQ(+Item(session->form.TotalItems - 1).y, 900 + 2 * LINE);
    EXPECT_EQ(session->form.ReportHeight, 1200 + 2 * LINE);
}

TEST_F(NewItems, ItemAtTheHeightOfAnOverrunningLabelMovesToo) {
    Label("Old", SECTION_DETAIL_1, 100, 760);
    Bar(SECTION_DETAIL_1).height = 390;
    const int row = Label("New", SECTION_DETAIL_1, 100, 760);
    EXPECT_STREQ(Item(row).LabelText, "New");
    EXPECT_EQ(+Item(row + 1).y, 760 + 2 * LINE);
}

TEST_F(NewItems, LabelWithoutAPlaceStandsInTheMiddleOfItsSection) {
    const ItemRecord &item = Item(Label("Total", SECTION_DETAIL_1, -1, -1));
    EXPECT_EQ(+item.x, (BAR_X + 2 + BAR_X + BAR_WIDTH - 80) / 2);
    EXPECT_EQ(+item.y, (400 + CAPTION + 2 + 400 + CAPTION + 400 - LINE) / 2);
}

TEST_F(NewItems, LineTakesItsRectangleAsItIs) {
    const int row = Line(SECTION_DETAIL_1, {101, 503, 777, 504}, 2, 9);
    ASSERT_EQ(row, 3);
    const ItemRecord &item = Item(row);
    EXPECT_EQ(+item.ItemType, ITEM_LINE);
    EXPECT_EQ(+item.x, 101);
    EXPECT_EQ(+item.y, 503);
    EXPECT_EQ(+item.width, 676);
    EXPECT_EQ(+item.height, 1);
    EXPECT_EQ(+item.LineAngle, 2);
    EXPECT_EQ(+item.LineWidth, 9);
    EXPECT_EQ(+item.LineStyle, 0);
    EXPECT_EQ(+item.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(NewItems, LineMayLieOnTheSectionsEdgesButNotBeyond) {
    const RECT edges = RectOf(Bar(SECTION_DETAIL_1));
    for (LONG RECT::*const edge : {&RECT::left, &RECT::top}) {
        RECT place = edges;
        --(place.*edge);
        EXPECT_EQ(Line(SECTION_DETAIL_1, place), -1);
    }
    for (LONG RECT::*const edge : {&RECT::right, &RECT::bottom}) {
        RECT place = edges;
        ++(place.*edge);
        EXPECT_EQ(Line(SECTION_DETAIL_1, place), -1);
    }
    EXPECT_EQ(session->form.SelectedItem, BarRow(SECTION_DETAIL_1));
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_GE(Line(SECTION_DETAIL_1, edges), 0);
}

TEST_F(NewItems, LineTurnedInsideOutIsRefused) {
    EXPECT_EQ(Line(SECTION_DETAIL_1, {300, 500, 200, 550}), -1);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {200, 550, 300, 500}), -1);
}

TEST_F(NewItems, ItemsStandInOrderOfTheirPlaces) {
    EXPECT_EQ(Label("B", SECTION_DETAIL_1, 300, 500), 3);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {100, 500, 200, 510}), 3);
    EXPECT_EQ(Label("C", SECTION_DETAIL_1, 100, 510), 5);
    EXPECT_EQ(Label("On the caption", SECTION_DETAIL_1, 100, 400), 3);
    EXPECT_EQ(BarRow(SECTION_DETAIL_1), 2);
    EXPECT_EQ(BarRow(SECTION_PAGE_FOOTER), 7);
}

TEST_F(NewItems, FullTableIsToldAndNothingIsDeselected) {
    FillTable(MAX_ITEMS);
    session->form.SelectedItem = 2;
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 500), -1);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {100, 500, 200, 510}), -1);
    EXPECT_EQ(boxes.Log(), std::vector<BoxRecord>(2, {"", "Item Table Full!", {IDOK}}));
    EXPECT_EQ(session->form.SelectedItem, 2);
}

TEST_F(NewItems, PendingCommandRefusesNewItems) {
    DesignerOf(session).PendingCommand = COMMAND_MOVE;
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 500), -1);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {100, 500, 200, 510}), -1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(NewItems, SectionMustBeInTheForm) {
    for (const int section : {-1, 12, 31, 1000}) {
        EXPECT_EQ(Label("New", section, 100, 500), -1);
        EXPECT_EQ(Line(section, {100, 500, 200, 510}), -1);
    }
    EXPECT_EQ(session->form.TotalItems, 4);
}

TEST_F(NewItems, NothingWrapsBeyondAFormsRange) {
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, -2147483647, 500), -1);
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 32760), -1);
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 2147483647), -1);
    session->form.ReportHeight = 32700;
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 790), -1);
    session->form.ReportHeight = 1200;
    AddItem(ITEM_LABEL, SECTION_PAGE_FOOTER, 100, 32700);
    EXPECT_EQ(Label("New", SECTION_DETAIL_1, 100, 790), -1);
    EXPECT_EQ(+Bar(SECTION_PAGE_FOOTER).y, 800);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {100, 500, 200, 510}, 40000), -1);
    EXPECT_EQ(Line(SECTION_DETAIL_1, {100, 500, 200, 510}, 0, -40000), -1);
    EXPECT_EQ(session->form.TotalItems, 5);
}

TEST_F(NewItems, NewTextOfALabelGivesItsSize) {
    ItemRecord &label = SelectLabel("Old");
    EXPECT_EQ(UpdateLabelText(session, Typed("A longer one\r\nof two")), 1);
    EXPECT_STREQ(label.LabelText, "A longer one\r\nof two");
    EXPECT_EQ(+label.width, 12 * CHARACTER + 20);
    EXPECT_EQ(+label.height, 2 * LINE);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(NewItems, SameTextOfALabelIsNoChange) {
    SelectLabel("Old");
    EXPECT_EQ(UpdateLabelText(session, Typed("Old")), 1);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(NewItems, LongTextOfALabelIsCutAt300CharactersAndTheSameCutIsNoChange) {
    ItemRecord &label = SelectLabel("Old");
    UpdateLabelText(session, Typed(std::string(400, 'y')));
    EXPECT_EQ(label.LabelText, std::string(300, 'y'));
    session->form.FormModified = 0;
    UpdateLabelText(session, Typed(std::string(400, 'y')));
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(NewItems, LabelThatWasEmptiedKeepsItsSize) {
    ItemRecord &label = SelectLabel("Old");
    UpdateLabelText(session, Typed(""));
    EXPECT_STREQ(label.LabelText, "");
    EXPECT_EQ(+label.width, 3 * CHARACTER + 20);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(NewItems, LabelThatItsUserSizedKeepsItsSizeWhenALongerTextIsTyped) {
    SelectLabel("Old");
    DesignerOf(session).FocusRect = {150, 520, 200, 550};
    ASSERT_EQ(SizeItem(session), 1);
    const ItemRecord &label = Item(session->form.SelectedItem);
    const int width = label.width;
    UpdateLabelText(session, Typed("Much longer than before"));
    EXPECT_STREQ(label.LabelText, "Much longer than before");
    EXPECT_EQ(+label.KeepSize, 1);
    EXPECT_EQ(+label.width, width);
    EXPECT_EQ(width, 50);
}

TEST_F(NewItems, NameOfACalculationIsKeptInCapitalsWithItsPrefixAndIsNoChange) {
    const FieldRecord &field = SelectField(FIELD_CALC, "CALC->OLD");
    char *text = Typed("net price");
    EXPECT_EQ(UpdateLabelText(session, text), 1);
    EXPECT_STREQ(field.FieldName, "CALC->NET PRICE");
    EXPECT_STREQ(text, "CALC->NET PRICE");
    EXPECT_STREQ(session->TextBuffer, "CALC->NET PRICE");
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(NewItems, NameThatHasThePrefixGetsNoSecond) {
    const FieldRecord &field = SelectField(FIELD_CALC, "CALC->OLD");
    char *text = Typed("calc->tax");
    UpdateLabelText(session, text);
    EXPECT_STREQ(text, "CALC->TAX");
    EXPECT_STREQ(field.FieldName, "CALC->TAX");
}

TEST_F(NewItems, NameOfACalculationMayComeFromTheScratchTextAndFitsItsRoom) {
    const FieldRecord &field = SelectField(FIELD_CALC, "CALC->OLD");
    std::string(1000, 'n').copy(session->TextBuffer, 1000);
    session->TextBuffer[1000] = 0;
    UpdateLabelText(session, session->TextBuffer);
    EXPECT_EQ(session->TextBuffer, "CALC->" + std::string(300, 'N'));
    EXPECT_EQ(field.FieldName, "CALC->" + std::string(sizeof field.FieldName - 7, 'N'));
}

TEST_F(NewItems, TextForAnythingElseIsDropped) {
    EXPECT_EQ(UpdateLabelText(session, Typed("text")), 1); // nothing is selected
    const FieldRecord &field = SelectField(FIELD_DATA, "CUSTOMER");
    char *text = Typed("text");
    EXPECT_EQ(UpdateLabelText(session, text), 1);
    EXPECT_STREQ(field.FieldName, "CUSTOMER");
    EXPECT_STREQ(text, "text");
    session->form.SelectedItem = 0;
    EXPECT_EQ(UpdateLabelText(session, text), 1);
    EXPECT_STREQ(Item(0).LabelText, "");
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(NewItems, LabelThatWouldPassAFormsRangeKeepsItsSize) {
    ItemRecord &label = SelectLabel("Old");
    session->form.Fonts[0].CharWidth['W'] = 200;
    UpdateLabelText(session, Typed(std::string(300, 'W')));
    EXPECT_EQ(+label.width, 3 * CHARACTER + 20);
}
