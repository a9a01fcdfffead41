#include "designer/field_edit.h"

#include <cstring>
#include <string>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "form/field_table.h"
#include "frame/host_data.h"
#include "frame/text.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

uint32_t asked_pages;
uint32_t asked_edit;
int answer;
Session *edited = nullptr;

int32_t __stdcall WidenField(Session *session, uint32_t pages, uint32_t may_edit, void *) {
    asked_pages = pages;
    asked_edit = may_edit;
    edited = session;
    FormDesk &desk = session->Desk;
    FieldRecord &field = desk.Fields[desk.Items[*desk.SelectedItem].FieldIndex];
    if (answer) field.FieldWidth = 3;
    return answer;
}

// The detail section and the page footer hold one field item each.
class FieldEdit : public DesignerSession {
protected:
    void SetUp() override {
        Know("CUSTOMER", TYPE_TEXT, 9);
        Know("AMOUNT", TYPE_NUMERIC, 8);
        FormBuilder form = TwoSections();
        form.Section(SECTION_PAGE_FOOTER, 400);
        form.FieldItem(SECTION_DETAIL_1, 600, 100, 300, 50,
                       form.Field(FIELD_DATA, "CUSTOMER", TYPE_TEXT, 9));
        form.FieldItem(SECTION_PAGE_FOOTER, 600, 100, 300, 50,
                       form.Field(FIELD_CALC, "CALC->Net", TYPE_NUMERIC, 9));
        FormRows::Store({}, &form.fields[2].FieldTokens);
        ASSERT_EQ(StartOn(form), 0);
        ASSERT_EQ(boxes.Texts(), std::vector<std::string>{});
        host_data.ItemPropertiesCallback = WidenField;
        asked_pages = 0;
        answer = 0;
    }
    void Know(const char *name, int type, int width) {
        FieldRecord &field = known[name];
        CopyText(name, field.FieldName, sizeof field.FieldName);
        field.ValueType = static_cast<int16_t>(type);
        field.FieldWidth = static_cast<int16_t>(width);
    }
    FieldRecord &Field(int row) { return session->form.Fields[row]; }
    ItemRecord &ItemOf(int field) {
        int row = 0;
        for (int at = 0; at < session->form.TotalItems; ++at) {
            const ItemRecord &item = session->form.Items[at];
            if (item.ItemType == ITEM_FIELD && item.FieldIndex == field) row = at;
        }
        EXPECT_GT(row, 0) << field;
        return session->form.Items[row];
    }
    void Select(int field) {
        SelectItem(session, static_cast<int>(&ItemOf(field) - session->form.Items));
    }
    void Type(const std::string &title, const std::string &text) {
        boxes.OnDialog(title, [this, text, tries = 0](DialogDriver dialog) mutable {
            if (tries++ > 0) return dialog.Press(IDCANCEL); // it was refused
            described = dialog.Control(EXPRESSION_DESCRIPTION) != nullptr;
            if (described) dialog.SetText(EXPRESSION_DESCRIPTION, "Gross");
            dialog.SetText(EXPRESSION_TEXT, text);
            dialog.Press(IDOK);
        });
    }

    bool described = false; // the dialog asked for a description
};

} // namespace

TEST_F(FieldEdit, HostIsAskedForThePagesOfEachTypeOfField) {
    struct {
        int type;
        uint32_t data;
        uint32_t calculation;
    } const cases[] = {{TYPE_NUMERIC, 33859, 50243}, {TYPE_DOUBLE, 33859, 50243},
                       {TYPE_TEXT, 33347, 49731},    {TYPE_DATE, 36931, 53315},
                       {TYPE_LOGICAL, 34883, 51267}, {TYPE_PICTURE, 1, 1}};
    Select(1);
    for (const auto &row : cases) {
        Field(1).ValueType = static_cast<int16_t>(row.type);
        for (const int kind : {FIELD_DATA, FIELD_SYSTEM, FIELD_USER}) {
            Field(1).FieldKind = static_cast<uint16_t>(kind);
            EditSelectedField(session);
            EXPECT_EQ(asked_pages, row.data) << row.type;
        }
        Field(1).FieldKind = FIELD_CALC;
        EditSelectedField(session);
        EXPECT_EQ(asked_pages, row.calculation) << row.type;
    }
    EXPECT_EQ(edited, session);
    EXPECT_EQ(asked_edit, 1u);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(FieldEdit, HostFindsTheFieldAndItsSectionInTheWorkArea) {
    Select(2);
    Command(COMMAND_EDIT_FIELD);
    EXPECT_STREQ(session->dialog.EditField.FieldName, "CALC->Net");
    EXPECT_EQ(session->dialog.DialogRow, SECTION_PAGE_FOOTER);
}

TEST_F(FieldEdit, ChangedFieldGetsItsSampleAnewAndTheFormIsModified) {
    Select(1);
    answer = 1;
    Command(COMMAND_EDIT_FIELD);
    EXPECT_STREQ(ItemOf(1).LabelText, "xxx");
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(FieldEdit, ReadOnlyFormIsToldToTheHost) {
    edit_allowed = 0;
    Select(1);
    EditSelectedField(session);
    EXPECT_EQ(asked_edit, 0u);
}

TEST_F(FieldEdit, BarCodeIsLeftAlone) {
    Select(1);
    Field(1).FieldFlags = FIELD_POSTNET;
    EditSelectedField(session);
    EXPECT_EQ(asked_pages, 0u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FieldEdit, ProtectedFieldIsTold) {
    Select(1);
    Field(1).Modifiable = 0;
    EditSelectedField(session);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{
                               {"Protected Field", "This field can not be modified!", {IDOK}}}));
    EXPECT_EQ(asked_pages, 0u);
}

TEST_F(FieldEdit, OnlyFieldsAreEditedAndOnlyWithAHostThatDoesIt) {
    SelectItem(session, Row("Beta"));
    EditSelectedField(session);
    session->form.SelectedItem = NOTHING_SELECTED;
    EditSelectedField(session);
    EXPECT_EQ(asked_pages, 0u);
    host_data.ItemPropertiesCallback = nullptr;
    Field(1).Modifiable = 0;
    Select(1);
    EditSelectedField(session);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FieldEdit, ExpressionInAHeaderOrADetailSectionIsEditedWithItsName) {
    Field(1).FieldKind = FIELD_CALC;
    Field(1).FieldTokens[0] = CELL_END;
    Select(1);
    Type("Calculation Field", "AMOUNT+1");
    Command(COMMAND_FIELD_EXPRESSION);
    EXPECT_TRUE(described);
    EXPECT_EQ(DesignerOf(session).ExpressionMode, 3);
    EXPECT_STREQ(Field(1).FieldName, "CALC->Gross");
    EXPECT_EQ(+Field(1).ValueType, TYPE_NUMERIC);
    EXPECT_EQ(+Field(1).FieldTokens[1], 503);
    EXPECT_EQ(ItemOf(1).LabelText[0], '-'); // the sample is a number's now
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(FieldEdit, ExpressionInAFooterKeepsItsNameAndMaySum) {
    Select(2);
    Type("Calculation Field", ".TOTAL-OF.AMOUNT");
    Command(COMMAND_FIELD_EXPRESSION);
    EXPECT_FALSE(described);
    EXPECT_EQ(DesignerOf(session).ExpressionMode, 1);
    EXPECT_STREQ(Field(2).FieldName, "CALC->Net");
    EXPECT_NE(+Field(2).FieldTokens[0], CELL_END);
}

TEST_F(FieldEdit, CancelledExpressionIsKept) {
    Select(2);
    Type("Calculation Field", "AMOUNT*2");
    Command(COMMAND_FIELD_EXPRESSION);
    const FieldRecord before = Field(2);
    session->form.FormModified = 0;
    boxes.AnswerDialog("Calculation Field", IDCANCEL);
    Command(COMMAND_FIELD_EXPRESSION);
    EXPECT_EQ(std::memcmp(&before, &Field(2), sizeof before), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(FieldEdit, EmptiedExpressionHasNoValueButKeepsItsType) {
    Select(2);
    Type("Calculation Field", "AMOUNT*2");
    Command(COMMAND_FIELD_EXPRESSION);
    Type("Calculation Field", "");
    EXPECT_EQ(EditCalculation(session, 2), 0);
    EXPECT_EQ(+Field(2).FieldTokens[0], CELL_END);
    EXPECT_EQ(+Field(2).ValueType, TYPE_NUMERIC);
}

TEST_F(FieldEdit, FieldThatWentUnderItsDialogIsLeftGone) {
    Select(2);
    boxes.OnDialog("Calculation Field", [this](DialogDriver dialog) {
        FreeFieldSlot(session, 2);
        dialog.SetText(EXPRESSION_TEXT, "AMOUNT*2");
        dialog.Press(IDOK);
    });
    Command(COMMAND_FIELD_EXPRESSION);
    EXPECT_EQ(+Field(2).FieldKind, FIELD_FREE);
}

TEST_F(FieldEdit, OnlyACalculationHasAnExpression) {
    Select(1);
    Command(COMMAND_FIELD_EXPRESSION);
    SelectItem(session, Row("Beta"));
    Command(COMMAND_FIELD_EXPRESSION);
    EXPECT_EQ(session->form.FormModified, 0u);
}
