#include "designer/field_items.h"

#include <gtest/gtest.h>

#include <cstring>

#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "form/defaults.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "frame/host_data.h"
#include "tests/support/three_sections.h"

using namespace tessarine;

namespace {

std::string offered;

// The host knows every name but "NONE": a "P..." is a picture, a "T..." a text, others numbers.
int32_t __stdcall CheckField(HWND, FieldRecord *record, int32_t, void *) {
    offered = record->FieldName;
    const char first = record->FieldName[0];
    record->ValueType = first == 'P' ? TYPE_PICTURE : first == 'T' ? TYPE_TEXT : TYPE_NUMERIC;
    record->FieldWidth = 5;
    record->HostTable = 3;
    return offered != "NONE";
}

// The host changes the form before it accepts.
Session *changed = nullptr;
void (*apply)(Session *session) = nullptr;
int32_t __stdcall CheckAndChange(HWND window, FieldRecord *record, int32_t level, void *context) {
    apply(changed);
    return CheckField(window, record, level, context);
}

class FieldItems : public ThreeSections {
protected:
    FieldItems() { session->FormBlock.CheckFieldProc = CheckField; }

    FieldRecord &FieldOf(int row) { return session->form.Fields[Item(row).FieldIndex]; }
    int Data(const char *name, int section, int x, int y, int wrap = 0) {
        return AddNewDataField(session, name, section, x, y, wrap);
    }
    int Calc(const char *text, int section, const char *description = "SUM") {
        return AddNewCalcField(session, text, section, description, 100, 850);
    }
};

} // namespace

TEST_F(FieldItems, DataFieldStandsAtItsPlaceWithItsSample) {
    const int row = Data("TEXT", SECTION_DETAIL_1, 100, 500);
    ASSERT_EQ(row, 3);
    const ItemRecord &item = Item(row);
    EXPECT_EQ(+item.ItemType, ITEM_FIELD);
    EXPECT_EQ(+item.x, 100);
    EXPECT_EQ(+item.y, 500);
    EXPECT_EQ(+item.width, 5 * CHARACTER + 20);
    EXPECT_EQ(+item.height, 50);
    EXPECT_EQ(+item.SectionIndex, SECTION_DETAIL_1);
    EXPECT_EQ(+item.ItemFlags, FLAG_LEFT | FLAG_MIDDLE);
    EXPECT_STREQ(item.LabelText, "xxxxX");
    EXPECT_EQ(+item.OutlineSides, 0);
    EXPECT_EQ(+FieldOf(row).FieldKind, FIELD_DATA);
    EXPECT_STREQ(FieldOf(row).FieldName, "TEXT");
    EXPECT_EQ(+FieldOf(row).HostTable, 3);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(session->form.SelectedItem, +session->form.Sections[SECTION_DETAIL_1].BarItem);
    EXPECT_EQ(+session->form.Sections[SECTION_PAGE_FOOTER].BarItem, 4);
}

TEST_F(FieldItems, NameIsOfferedWithAtMost99Characters) {
    Data(std::string(150, 'T').c_str(), SECTION_DETAIL_1, 100, 500);
    EXPECT_EQ(offered, std::string(99, 'T'));
}

TEST_F(FieldItems, FieldThatTheHostRefusesIsNotMade) {
    EXPECT_EQ(Data("NONE", SECTION_DETAIL_1, 100, 500), -1);
    session->FormBlock.CheckFieldProc = nullptr;
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 500), -1);
    EXPECT_EQ(session->form.TotalItems, 4);
    EXPECT_EQ(FieldsInUse(), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FieldItems, ItemsStandInOrderOfTheirPlaces) {
    const int second = Data("B", SECTION_DETAIL_1, 300, 500);
    const int first = Data("A", SECTION_DETAIL_1, 100, 500);
    const int last = Data("C", SECTION_DETAIL_1, 100, 510);
    EXPECT_EQ(second, 3);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(last, 5);
    EXPECT_STREQ(FieldOf(4).FieldName, "B");
}

TEST_F(FieldItems, ItemOnTheCaptionStillStandsBehindItsBar) {
    EXPECT_EQ(Data("A", SECTION_PAGE_HEADER, 0, 0), 1);
    EXPECT_EQ(+Item(0).ItemType, ITEM_BAR);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 0, 0), 4);
    EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_1].BarItem, 3);
}

TEST_F(FieldItems, ItemThatPassesTheRightEndStartsANewLineWhenItMay) {
    const int width = 5 * CHARACTER + 20;
    const int end = BAR_X + BAR_WIDTH - width;
    EXPECT_EQ(+Item(Data("T", SECTION_DETAIL_1, end, 500, 1)).x, end);
    const ItemRecord wrapped = Item(Data("T", SECTION_DETAIL_1, end + 1, 500, 1));
    EXPECT_EQ(+wrapped.x, BAR_X + 200);
    EXPECT_EQ(+wrapped.y, 550);
    const ItemRecord kept = Item(Data("T", SECTION_DETAIL_1, end + 1, 500, 0));
    EXPECT_EQ(+kept.x, end + 1);
    EXPECT_EQ(+kept.y, 500);
}

TEST_F(FieldItems, SectionThatIsTooLowGrowsByTwiceTheHeight) {
    Data("A", SECTION_DETAIL_1, 100, 600);
    Data("B", SECTION_DETAIL_1, 100, 750);
    EXPECT_EQ(+Bar(SECTION_DETAIL_1).height, 400);
    Item(1).y = 760; // the group stays
    const int row = Data("C", SECTION_DETAIL_1, 300, 751);
    EXPECT_EQ(+Item(row).y, 751);
    EXPECT_EQ(+Bar(SECTION_DETAIL_1).height, 500);
    EXPECT_EQ(+Bar(SECTION_DETAIL_1).y, 400);
    EXPECT_EQ(+Bar(SECTION_PAGE_FOOTER).y, 900);
    EXPECT_EQ(session->form.ReportHeight, 1300);
    EXPECT_EQ(+Item(1).y, 760);
    EXPECT_EQ(+Bar(SECTION_PAGE_HEADER).y, 0);
}

TEST_F(FieldItems, ItemsAtTheNewItemsTopMoveDownToo) {
    const int first = Data("A", SECTION_DETAIL_1, 100, 750);
    Bar(SECTION_DETAIL_1).height = 390;
    const int second = Data("B", SECTION_DETAIL_1, 100, 750);
    EXPECT_EQ(first, second);
    EXPECT_STREQ(FieldOf(second).FieldName, "B");
    EXPECT_EQ(+Item(second + 1).y, 850);
}

TEST_F(FieldItems, NegativePlaceIsTheMiddleOfTheSection) {
    const ItemRecord item = Item(Data("T", SECTION_DETAIL_1, -1, -1));
    const int left = BAR_X + 2;
    const int top = 400 + CAPTION + 2;
    EXPECT_EQ(+item.x, (left + left + BAR_WIDTH - 2 - 80) / 2);
    EXPECT_EQ(+item.y, (top + top + 400 - 2 - 50) / 2);
}

TEST_F(FieldItems, NegativePlaceOnALabelFormIsTheMiddleOfTheLabel) {
    session->LabelMode = 1;
    const ItemRecord item = Item(Data("T", SECTION_DETAIL_1, -1, -1));
    EXPECT_EQ(+item.x, (BAR_X + BAR_X + BAR_WIDTH - 80) / 2);
    EXPECT_EQ(+item.y, (CAPTION + 400 - 50) / 2);
}

TEST_F(FieldItems, NumberInAFooterIsATotalFromTheStart) {
    const int footer = Data("A", SECTION_PAGE_FOOTER, 100, 850);
    EXPECT_EQ(+FieldOf(footer).SummaryType, SUMMARY_TOTAL);
    EXPECT_EQ(+Item(footer).ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
}

TEST_F(FieldItems, DoubleInAFooterIsATotalToo) {
    const int row = Calc("A*1.5", SECTION_PAGE_FOOTER);
    EXPECT_EQ(+FieldOf(row).ValueType, TYPE_DOUBLE);
    EXPECT_EQ(+FieldOf(row).SummaryType, SUMMARY_TOTAL);
    EXPECT_EQ(+Item(row).ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
}

TEST_F(FieldItems, NumberInTheDetailSectionIsAValue) {
    const int detail = Data("A", SECTION_DETAIL_1, 100, 450);
    EXPECT_EQ(+FieldOf(detail).SummaryType, SUMMARY_VALUE);
    EXPECT_EQ(+Item(detail).ItemFlags, FLAG_RIGHT | FLAG_MIDDLE);
}

TEST_F(FieldItems, TextInAFooterIsAValue) {
    const int row = Data("T", SECTION_PAGE_FOOTER, 100, 850);
    EXPECT_EQ(+FieldOf(row).SummaryType, SUMMARY_VALUE);
}

TEST_F(FieldItems, PictureFieldIsSquareWithAllItsSides) {
    const int row = Data("P", SECTION_DETAIL_1, 100, 450);
    EXPECT_EQ(+Item(row).OutlineSides, 15);
    EXPECT_EQ(+Item(row).height, +Item(row).width);
    EXPECT_STREQ(Item(row).LabelText, "PPPPP");
}

TEST_F(FieldItems, SystemFieldTakesItsRowOfTheTable) {
    for (int index = 0; index < 6; ++index) {
        const int row = AddNewSysField(session, index, SECTION_PAGE_FOOTER, 100, 850);
        ASSERT_GE(row, 0);
        const FieldRecord &field = FieldOf(row);
        const SystemFieldRow &system = session->form.SystemFields[index];
        EXPECT_EQ(+field.FieldKind, FIELD_SYSTEM);
        EXPECT_EQ(field.FieldName, std::string("SYS->") + system.Name);
        EXPECT_EQ(+field.ValueType, +system.ValueType);
        EXPECT_EQ(+field.FieldWidth, +system.Width);
        EXPECT_EQ(+field.TableIndex, index);
        EXPECT_EQ(+field.Modifiable, 1);
        EXPECT_EQ(+field.SummaryType, SUMMARY_VALUE); // also of a number in a footer
    }
    for (int index : {-1, 6}) EXPECT_EQ(AddNewSysField(session, index, 11, 100, 450), -1);
}

TEST_F(FieldItems, CalculationFieldHoldsItsExpression) {
    const int row = Calc("A+B*2", SECTION_PAGE_FOOTER, "Price with tax");
    ASSERT_EQ(row, 4);
    const FieldRecord &field = FieldOf(row);
    EXPECT_EQ(+Item(row).FieldIndex, 1); // the compiler took the rows behind it
    EXPECT_EQ(+field.FieldKind, FIELD_CALC);
    EXPECT_STREQ(field.FieldName, "CALC->Price with tax");
    EXPECT_EQ(+field.ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+field.SummaryType, SUMMARY_TOTAL);
    const uint16_t cells[] = {2, 503, 3, 505, 4, CELL_END};
    EXPECT_EQ(memcmp(field.FieldTokens, cells, sizeof cells), 0);
    EXPECT_EQ(DesignerOf(session).ExpressionMode, 1);
    AddNewCalcField(session, "A", SECTION_DETAIL_1, "", 100, 450);
    EXPECT_EQ(DesignerOf(session).ExpressionMode, 2);
}

TEST_F(FieldItems, DescriptionHasAtMost43Characters) {
    const int row = Calc("T", SECTION_PAGE_FOOTER, std::string(80, 'D').c_str());
    EXPECT_EQ(FieldOf(row).FieldName, "CALC->" + std::string(43, 'D'));
}

TEST_F(FieldItems, BrokenExpressionLeavesNothingBehind) {
    for (const char *text : {"A+NONE", "A+B*", "T+A", "A+\"x"}) {
        boxes.Clear();
        EXPECT_EQ(Calc(text, SECTION_PAGE_FOOTER), -1) << text;
        EXPECT_EQ(boxes.Log().size(), 1u) << text;
        EXPECT_EQ(FieldsInUse(), 0) << text;
    }
    EXPECT_EQ(session->form.TotalItems, 4);
}

TEST_F(FieldItems, FullItemTableIsTold) {
    FillTable(MAX_ITEMS);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 450), -1);
    EXPECT_EQ(Calc("A", SECTION_DETAIL_1), -1);
    EXPECT_EQ(AddNewSysField(session, 0, SECTION_DETAIL_1, 100, 450), -1);
    ASSERT_EQ(boxes.Log().size(), 3u);
    for (const BoxRecord &box : boxes.Log())
        EXPECT_EQ(box, (BoxRecord{"", "Item Table Full!", {IDOK}}));
}

TEST_F(FieldItems, LastRowOfTheItemTableIsStillGiven) {
    FillTable(MAX_ITEMS - 1);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 450), 3);
}

TEST_F(FieldItems, FullFieldTableIsTold) {
    while (NewFieldSlot(session) != NO_SLOT) session.AddField(FIELD_DATA, "X", TYPE_NUMERIC);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 450), -1);
    EXPECT_EQ(Calc("A", SECTION_DETAIL_1), -1);
    EXPECT_EQ(AddNewSysField(session, 0, SECTION_DETAIL_1, 100, 450), -1);
    ASSERT_EQ(boxes.Log().size(), 3u);
    for (const BoxRecord &box : boxes.Log())
        EXPECT_EQ(box, (BoxRecord{"", "Ran out of TempFld table!", {IDOK}}));
}

TEST_F(FieldItems, PendingCommandRefusesNewItems) {
    DesignerOf(session).PendingCommand = 608;
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 450), -1);
    EXPECT_EQ(Calc("A", SECTION_DETAIL_1), -1);
    EXPECT_EQ(AddNewSysField(session, 0, SECTION_DETAIL_1, 100, 450), -1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FieldItems, SectionMustBeInTheForm) {
    for (int section : {-1, 12, 31, 1000}) EXPECT_EQ(Data("A", section, 100, 450), -1) << section;
    EXPECT_EQ(FieldsInUse(), 0);
}

TEST_F(FieldItems, PlacesBeyondAFormsRangeAreRefused) {
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 40000, 450), -1);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 32760, 450), -1);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 2147483647), -1);
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 32760), -1);
    session->form.ReportHeight = 32700;
    EXPECT_EQ(Data("A", SECTION_DETAIL_1, 100, 790), -1);
    EXPECT_EQ(AddNewCalcField(session, "A+B", SECTION_DETAIL_1, "", 32760, 450), -1);
    EXPECT_EQ(FieldsInUse(), 0);
    EXPECT_EQ(session->form.TotalItems, 4);
}

TEST_F(FieldItems, FormThatTheHostChangesWhileItIsAskedTakesNoField) {
    void (*const changes[])(Session *) = {
        [](Session *s) { s->form.TotalItems = MAX_ITEMS; },
        [](Session *s) { s->form.Sections[SECTION_DETAIL_1].InUse = 0; },
        [](Session *s) { DesignerOf(s).PendingCommand = 608; },
        [](Session *s) { s->State = STATE_ENDING; },
    };
    changed = session;
    session->FormBlock.CheckFieldProc = CheckAndChange;
    const auto state = session->State;
    for (const auto change : changes) {
        for (const bool calculation : {false, true}) {
            apply = change;
            EXPECT_EQ(calculation ? Calc("A", SECTION_DETAIL_1)
                                  : Data("A", SECTION_DETAIL_1, 100, 450),
                      -1);
            if (session->State == STATE_ENDING) session->form.FieldCount = 0;
            session->State = state;
            session->form.TotalItems = 4;
            session->form.Sections[SECTION_DETAIL_1].InUse = 1;
            DesignerOf(session).PendingCommand = IDLE;
            EXPECT_EQ(FieldsInUse(), 0);
        }
    }
}
