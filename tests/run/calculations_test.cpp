// Calculated fields: which are made when, and what they leave in their rows.
#include "run/calculations.h"
#include "tests/support/composition.h"

using tessarine::CalcFields;
using tessarine::EvalBreakFields;

using Calculations = Composition;

TEST_F(Calculations, CalculationsOfASectionRangeAreMadeInTableOrder) {
    const int value = NumberField(4);
    const int first = CalcField({value});
    const int second = CalcField({first});
    const int early = CalcField({0}); // reads a row that stands behind it
    const int late = CalcField({value});
    Field(early).FieldTokens[0] = static_cast<uint16_t>(late);
    Field(first).SummarySection = Field(second).SummarySection = 10;
    CalcFields(session, 0, 9);
    EXPECT_EQ(+Field(first).LongValue, 0);
    EXPECT_EQ(+Field(late).LongValue, 4);
    EXPECT_EQ(+Field(early).LongValue, 0);
    CalcFields(session, 0, 10);
    EXPECT_EQ(+Field(second).LongValue, 4);
    EXPECT_EQ(+Field(early).LongValue, 4); // by now the other has its value
}

TEST_F(Calculations, RowsBehindTheTablesEndAreLeftAlone) {
    const int value = NumberField(4);
    const int first = CalcField({value});
    const int behind = CalcField({value});
    session->form.FieldCount = behind;
    CalcFields(session, 0, 30);
    EXPECT_EQ(+Field(first).LongValue, 4);
    EXPECT_EQ(+Field(behind).LongValue, 0);
}

TEST_F(Calculations, FieldsOfAllBreakLevelsAreMadeAndNoOther) {
    const int value = NumberField(4);
    const int outer = CalcField({value});
    const int inner = CalcField({value});
    const int behind = CalcField({value});
    Break(outer, SECTION_SORT_HEADER_1);
    Break(inner, SECTION_SORT_HEADER_1 + 1);
    Break(behind, SECTION_SORT_HEADER_1 + 2);
    session->form.BreakCount = 2;
    EvalBreakFields(session);
    EXPECT_EQ(+Field(outer).LongValue, 4);
    EXPECT_EQ(+Field(inner).LongValue, 4);
    EXPECT_EQ(+Field(behind).LongValue, 0);
}

TEST_F(Calculations, CalculatedTextIsTwoNarrowerThanItIsLong) {
    const int text = TextField("seven77");
    const int calculated = CalcField({text});
    Field(calculated).ValueType = TYPE_TEXT;
    Field(calculated).FieldWidth = 50;
    CalcFields(session, 0, 30);
    EXPECT_STREQ(Field(calculated).TextValue, "seven77");
    EXPECT_EQ(+Field(calculated).FieldWidth, 5);
}
