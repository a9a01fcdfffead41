#include "form/field_sample.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

constexpr int CHARACTER = 12; // form units, in font row 0 of a bare session
constexpr int INSET = 20;

class FieldSample : public testing::Test {
protected:
    FieldRecord &Field(int type, int width, int kind = FIELD_DATA) {
        row = NewRow(type, width, kind);
        return session->form.Fields[row];
    }
    int NewRow(int type, int width, int kind) {
        session->form.FieldCount = 0;
        const int slot = session.AddField(kind, "F", TYPE_NUMERIC, width);
        session->form.Fields[slot].ValueType = static_cast<int16_t>(type);
        session->form.Fields[slot].NegativePrefix[0] = 0;
        session->form.Fields[slot].ThousandsChar[0] = 0;
        return slot;
    }
    std::string Sample(int width = 0) {
        char text[MAX_LABEL_TEXT + 1];
        EXPECT_EQ(CreateFieldLabel(session, row, text, width, 0), 1);
        return text;
    }
    // Within a width that has room for so many characters.
    std::string SampleIn(int characters) { return Sample(characters * CHARACTER + INSET); }

    BareSession session;
    int row = 0;
};

} // namespace

TEST_F(FieldSample, TextHasACapitalAtEveryFifthPlace) {
    Field(TYPE_TEXT, 12);
    EXPECT_EQ(Sample(), "xxxxXxxxxXxx");
}

TEST_F(FieldSample, TextTakesTheFieldsCase) {
    FieldRecord &field = Field(TYPE_TEXT, 7);
    field.FieldFlags = FIELD_UPPER;
    EXPECT_EQ(Sample(), "XXXXXXX");
    field.FieldFlags = FIELD_LOWER;
    EXPECT_EQ(Sample(), "xxxxxxx");
    field.FieldFlags = FIELD_CAPITALIZE;
    EXPECT_EQ(Sample(), "Xxxxxxx");
}

TEST_F(FieldSample, TextWithoutALimitEndsAt580Units) {
    Field(TYPE_TEXT, 100);
    EXPECT_EQ(Sample().size(), size_t{580 / CHARACTER});
}

TEST_F(FieldSample, TextTakesNoMoreCharactersThanTheFieldIsWide) {
    Field(TYPE_TEXT, 5);
    EXPECT_EQ(SampleIn(20), "xxxxX");
}

TEST_F(FieldSample, CalculatedTextFillsItsWidthUpTo300Characters) {
    Field(TYPE_TEXT, 5, FIELD_CALC);
    EXPECT_EQ(SampleIn(20).size(), 20u);
    EXPECT_EQ(SampleIn(400).size(), 300u);
}

TEST_F(FieldSample, TextLosesTheCharacterThatPassesTheWidth) {
    Field(TYPE_TEXT, 50);
    EXPECT_EQ(Sample(INSET + 3 * CHARACTER).size(), 3u);
    EXPECT_EQ(Sample(INSET + 4 * CHARACTER - 1).size(), 3u);
    EXPECT_EQ(Sample(INSET + CHARACTER - 1), "");
    EXPECT_EQ(Sample(INSET), "");
    EXPECT_EQ(Sample(1), "");
}

TEST_F(FieldSample, BarcodeHasItsOwnText) {
    Field(TYPE_TEXT, 15).FieldFlags = FIELD_POSTNET;
    EXPECT_EQ(Sample(), "920082324");
    EXPECT_EQ(SampleIn(4), "9200");
}

TEST_F(FieldSample, NumberHasAsManyNinesAsTheFieldIsWide) {
    for (int type : {TYPE_NUMERIC, TYPE_DOUBLE}) {
        Field(type, 4);
        EXPECT_EQ(Sample(), "9999");
    }
}

TEST_F(FieldSample, DecimalsAreSplitOffByTheDecimalCharacter) {
    FieldRecord &field = Field(TYPE_DOUBLE, 6);
    field.Decimals = 2;
    EXPECT_EQ(Sample(), "9999.99");
    field.DecimalChar[0] = ',';
    EXPECT_EQ(Sample(), "9999,99");
    field.Decimals = 6;
    EXPECT_EQ(Sample(), ",999999");
}

TEST_F(FieldSample, MoreDecimalsThanWidthArePaddedWithZerosBehindThePoint) {
    FieldRecord &field = Field(TYPE_NUMERIC, 2);
    field.Decimals = 3;
    EXPECT_EQ(Sample(), ".099");
    field.Decimals = 5;
    field.ThousandsChar[0] = ',';
    EXPECT_EQ(Sample(), ".00099");
}

TEST_F(FieldSample, DigitsBeforeThePointAreGroupedByThrees) {
    FieldRecord &field = Field(TYPE_DOUBLE, 9);
    field.ThousandsChar[0] = ',';
    EXPECT_EQ(Sample(), "999,999,999");
    field.Decimals = 2;
    EXPECT_EQ(Sample(), "9,999,999.99");
    field.Decimals = 6;
    EXPECT_EQ(Sample(), "999.999999");
}

TEST_F(FieldSample, CurrencyStandsBeforeTheDigitsAndTheSignBeforeTheCurrency) {
    FieldRecord &field = Field(TYPE_DOUBLE, 3);
    field.SymbolKind = SYMBOL_CURRENCY;
    strcpy(field.CurrencySymbol, "$");
    strcpy(field.NegativePrefix, "-");
    EXPECT_EQ(Sample(), "-$999");
    field.SymbolKind = SYMBOL_PERCENT;
    EXPECT_EQ(Sample(), "-999%");
    field.SymbolKind = SYMBOL_NONE;
    EXPECT_EQ(Sample(), "-999");
}

TEST_F(FieldSample, WiderPrefixAndSuffixAreShownAndTheNegativeOnesWhenEqual) {
    FieldRecord &field = Field(TYPE_NUMERIC, 2);
    strcpy(field.NegativePrefix, "(");
    strcpy(field.PositivePrefix, "+");
    strcpy(field.NegativeSuffix, ")");
    strcpy(field.PositiveSuffix, "pl");
    field.SymbolKind = SYMBOL_PERCENT;
    EXPECT_EQ(Sample(), "(99pl%");
    session->form.Fonts[0].CharWidth[')'] = 30;
    session->form.Fonts[0].CharWidth['('] = 1;
    EXPECT_EQ(Sample(), "+99)%");
}

TEST_F(FieldSample, NumberKeepsTheEndThatFits) {
    FieldRecord &field = Field(TYPE_DOUBLE, 9);
    field.ThousandsChar[0] = ',';
    field.Decimals = 2;
    EXPECT_EQ(SampleIn(12), "9,999,999.99");
    EXPECT_EQ(SampleIn(9), "99,999.99" + std::string());
    EXPECT_EQ(SampleIn(7), "9999.99"); // its leading comma became a nine
    EXPECT_EQ(SampleIn(3), ".99");
}

TEST_F(FieldSample, WidthSmallerThanOneCharacterIsAtLeastOneNine) {
    Field(TYPE_NUMERIC, 5);
    for (int width : {INSET + CHARACTER - 1, INSET + 1, INSET, 5, 1})
        EXPECT_EQ(Sample(width), "9") << width;
}

TEST_F(FieldSample, WidthThatTheInsetUsesUpIsALimitAllTheSame) {
    Field(TYPE_TEXT, 15);
    for (int width : {INSET + 1, INSET, INSET - 1, 1, -1}) EXPECT_EQ(Sample(width), "") << width;
    EXPECT_EQ(Sample(0), "xxxxXxxxxXxxxxX");
}

TEST_F(FieldSample, DatesShowTheirFormat) {
    const char *samples[] = {"mm/dd/yy",       "dd/mm/yy",   "mm/dd/yyyy",   "Mmm dd, yyyy",
                             "Month dd, yyyy", "dd/mm/yyyy", "dd Mmm, yyyy", "dd Month, yyyy"};
    FieldRecord &field = Field(TYPE_DATE, 8);
    for (int format = 0; format < 8; ++format) {
        field.DateFormat = static_cast<int16_t>(format);
        EXPECT_EQ(Sample(), samples[format]);
    }
    field.DateFormat = 2;
    field.DateDelimiter[0] = '.';
    EXPECT_EQ(Sample(), "mm.dd.yyyy");
}

TEST_F(FieldSample, DateFormatOutsideTheTableHasNoSample) {
    FieldRecord &field = Field(TYPE_DATE, 8);
    for (int format : {-1, 8, 9}) {
        field.DateFormat = static_cast<int16_t>(format);
        EXPECT_EQ(Sample(), "");
    }
}

TEST_F(FieldSample, LogicalShowsTheLongerWordAndTheTrueOneWhenEqual) {
    FieldRecord &field = Field(TYPE_LOGICAL, 3);
    EXPECT_EQ(Sample(), "Y");
    strcpy(field.TrueText, "Yes");
    EXPECT_EQ(Sample(), "Yes");
    strcpy(field.FalseText, "Never");
    EXPECT_EQ(Sample(), "Never");
}

TEST_F(FieldSample, PictureShowsItsWidth) {
    Field(TYPE_PICTURE, 6);
    EXPECT_EQ(Sample(), "PPPPPP");
}

TEST_F(FieldSample, SampleNeverPasses300Characters) {
    for (int type : {TYPE_NUMERIC, TYPE_TEXT, TYPE_PICTURE}) {
        FieldRecord &field = Field(type, 32000);
        field.ThousandsChar[0] = ',';
        field.Decimals = 32000;
        EXPECT_LE(Sample().size(), 300u);
        field.Decimals = 0;
        EXPECT_LE(Sample().size(), 300u);
        EXPECT_LE(Sample(32767).size(), 300u);
    }
}

TEST_F(FieldSample, TextsWithoutATerminatorAreNotReadBeyondTheirFields) {
    FieldRecord &field = Field(TYPE_LOGICAL, 3);
    memset(field.TrueText, 'T', sizeof field.TrueText);
    EXPECT_EQ(Sample(), std::string(sizeof field.TrueText, 'T'));
}

TEST_F(FieldSample, RowOutsideTheTableHasNoSample) {
    for (int outside : {-1, 400, 5000}) {
        row = outside;
        EXPECT_EQ(Sample(), "");
    }
}

TEST_F(FieldSample, FieldSizeIsTheSamplesWidthWithItsInsets) {
    int32_t height = 0;
    int32_t width = 0;
    Field(TYPE_NUMERIC, 5);
    EXPECT_EQ(GetFieldSize(session, row, 0, &height, &width), 1);
    EXPECT_EQ(width, 5 * CHARACTER + INSET);
    EXPECT_EQ(height, 50);
}

TEST_F(FieldSample, PictureFieldIsSquare) {
    int32_t height = 0;
    int32_t width = 0;
    Field(TYPE_PICTURE, 10);
    GetFieldSize(session, row, 0, &height, &width);
    EXPECT_EQ(width, 10 * CHARACTER + INSET);
    EXPECT_EQ(height, width);
}
