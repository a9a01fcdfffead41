#include "format/format_field.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "form/defaults.h"
#include "frame/text.h"
#include "tests/support/host_state.h"

using namespace tessarine;

namespace {

template <size_t Size> void Set(char (&field)[Size], const char *text) {
    CopyText(text, field, Size);
}

class FormatFieldRules : public testing::Test {
protected:
    FormatFieldRules() : session(new Session{}) {}
    ~FormatFieldRules() override { delete session; }

    FieldRecord Field(int type) {
        FieldRecord record;
        InitField(session, &record);
        record.ValueType = static_cast<int16_t>(type);
        return record;
    }
    FieldRecord Number(int32_t value) {
        FieldRecord record = Field(TYPE_NUMERIC);
        record.LongValue = value;
        Set(record.ThousandsChar, "");
        return record;
    }
    FieldRecord Double(double value, int decimals) {
        FieldRecord record = Field(TYPE_DOUBLE);
        record.DoubleValue = value;
        record.Decimals = static_cast<int16_t>(decimals);
        return record;
    }
    FieldRecord Dollars(double value) {
        FieldRecord record = Double(value, 2);
        record.SymbolKind = SYMBOL_CURRENCY;
        Set(record.CurrencySymbol, "$");
        return record;
    }
    std::string Printed(FieldRecord &record) {
        char buffer[MAX_LABEL_TEXT + 2] = "as it was";
        buffer[MAX_LABEL_TEXT + 1] = '#';
        EXPECT_EQ(FormatField(session, &record, buffer), 1);
        EXPECT_EQ(buffer[MAX_LABEL_TEXT + 1], '#');
        return buffer;
    }
    std::string PrintedOnce(FieldRecord record) { return Printed(record); }
    std::string TextWith(int flags, const char *text) {
        FieldRecord record = Field(TYPE_TEXT);
        char value[100];
        Set(value, text);
        record.TextValue = value;
        record.FieldFlags = static_cast<uint16_t>(flags);
        EXPECT_EQ(Printed(record), "as it was");
        return value;
    }

    Session *session;
};

} // namespace

// ---- zero

TEST_F(FormatFieldRules, ZeroTextReplacesTheWholeTextOfZero) {
    FieldRecord record = Dollars(0.0);
    Set(record.ZeroText, "-");
    record.SymbolWhen = WHEN_ALWAYS;
    Set(record.PositivePrefix, "+");
    EXPECT_EQ(Printed(record), "-");
}

TEST_F(FormatFieldRules, ZeroTextZeroPrintsARegularNumber) {
    FieldRecord whole = Number(0);
    whole.Decimals = 2;
    EXPECT_EQ(PrintedOnce(Double(0.0, 2)), " 0.00"); // a blank for the default negative prefix
    EXPECT_EQ(Printed(whole), " .00");
    Set(whole.NegativePrefix, "");
    EXPECT_EQ(Printed(whole), ".00");
}

TEST_F(FormatFieldRules, EmptyZeroTextPrintsZeroAsNothing) {
    FieldRecord record = Number(0);
    Set(record.ZeroText, "");
    EXPECT_EQ(Printed(record), "");
}

TEST_F(FormatFieldRules, ZeroTextOfTwoZerosIsATextOfItsOwn) {
    FieldRecord record = Double(0.0, 2);
    Set(record.ZeroText, "00");
    EXPECT_EQ(Printed(record), "00");
}

TEST_F(FormatFieldRules, ZeroTextIsForTheValueAndNotForItsRoundedDigits) {
    FieldRecord record = Double(0.001, 2);
    Set(record.ZeroText, "none");
    EXPECT_EQ(Printed(record), " 0.00");
}

// ---- digits, groups, signs

TEST_F(FormatFieldRules, NegativeDoubleIsGroupedBehindItsPrefix) {
    EXPECT_EQ(PrintedOnce(Double(-1234.5, 2)), "-1,234.50");
}

TEST_F(FormatFieldRules, PositiveValueKeepsTheRoomOfTheNegativePrefix) {
    EXPECT_EQ(PrintedOnce(Double(1234.5, 2)), " 1,234.50");
}

TEST_F(FormatFieldRules, SuffixOfTheOtherSignLeavesNoBlanks) {
    FieldRecord record = Number(5);
    Set(record.NegativePrefix, "(");
    Set(record.NegativeSuffix, ")");
    EXPECT_EQ(Printed(record), " 5");
    record.LongValue = -5;
    EXPECT_EQ(Printed(record), "(5)");
}

TEST_F(FormatFieldRules, PrefixesOfDifferentWidthAlignTheDigits) {
    FieldRecord record = Number(7);
    Set(record.NegativePrefix, "CR ");
    Set(record.PositivePrefix, "+");
    EXPECT_EQ(Printed(record), "+  7");
    record.LongValue = -7;
    EXPECT_EQ(Printed(record), "CR 7");
}

TEST_F(FormatFieldRules, SuffixIsExactAndItsTrailingBlanksAreCut) {
    FieldRecord record = Number(7);
    Set(record.PositiveSuffix, "u ");
    EXPECT_EQ(Printed(record), " 7u");
    record.SymbolKind = SYMBOL_PERCENT; // its sign is painted apart
    Set(record.PositiveSuffix, "");
    EXPECT_EQ(Printed(record), " 7");
}

TEST_F(FormatFieldRules, WholeNumberHoldsUnitsOfItsLastDecimal) {
    const struct {
        int32_t value;
        int decimals;
        const char *text;
    } cases[] = {{12345, 2, "123.45"}, {105, 2, "1.05"}, {45, 2, ".45"},
                 {5, 2, ".05"},        {5, 5, ".00005"}, {123, 3, ".123"},
                 {1234, 0, "1234"},    {7, -3, "7"},     {12, 12, ".000000000012"}};
    for (const auto &row : cases) {
        FieldRecord record = Number(row.value);
        record.Decimals = static_cast<int16_t>(row.decimals);
        Set(record.NegativePrefix, "");
        EXPECT_EQ(Printed(record), row.text);
    }
}

TEST_F(FormatFieldRules, GroupsOnlyTheDigitsBeforeThePoint) {
    const struct {
        int32_t value;
        int decimals;
        const char *text;
    } cases[] = {{999, 0, "999"},
                 {1000, 0, "1,000"},
                 {1234567, 0, "1,234,567"},
                 {1234567, 5, "12.34567"},
                 {123456, 2, "1,234.56"},
                 {123456, 6, ".123456"},
                 {2147483647, 0, "2,147,483,647"}};
    for (const auto &row : cases) {
        FieldRecord record = Number(row.value);
        record.Decimals = static_cast<int16_t>(row.decimals);
        Set(record.NegativePrefix, "");
        Set(record.ThousandsChar, ",");
        EXPECT_EQ(Printed(record), row.text);
    }
}

TEST_F(FormatFieldRules, SmallestWholeNumberKeepsAllItsDigits) {
    FieldRecord record = Number(INT32_MIN);
    Set(record.ThousandsChar, ".");
    Set(record.DecimalChar, ",");
    record.Decimals = 2;
    EXPECT_EQ(Printed(record), "-21.474.836,48");
}

TEST_F(FormatFieldRules, RoundsUpIntoTheWholePart) {
    EXPECT_EQ(PrintedOnce(Double(0.999, 2)), " 1.00");
    EXPECT_EQ(PrintedOnce(Double(999.999, 2)), " 1,000.00");
}

TEST_F(FormatFieldRules, EmptyDecimalCharacterDropsTheDecimals) {
    FieldRecord record = Double(1234.5, 2);
    Set(record.DecimalChar, "");
    EXPECT_EQ(Printed(record), " 1,234");
    FieldRecord whole = Number(12345);
    Set(whole.DecimalChar, "");
    whole.Decimals = 2;
    EXPECT_EQ(Printed(whole), " 123");
}

// ---- symbol

TEST_F(FormatFieldRules, SignStandsInFrontOfTheCurrencySymbol) {
    FieldRecord record = Dollars(-123.45);
    record.SymbolWhen = WHEN_ALWAYS;
    EXPECT_EQ(Printed(record), "-$123.45");
    record.DoubleValue = 123.45;
    EXPECT_EQ(Printed(record), " $123.45");
}

TEST_F(FormatFieldRules, EmptyCurrencySymbolAddsNothing) {
    FieldRecord record = Dollars(1.0);
    record.SymbolWhen = WHEN_ALWAYS;
    Set(record.CurrencySymbol, "");
    EXPECT_EQ(Printed(record), " 1.00");
}

TEST_F(FormatFieldRules, SymbolShowsByRowOrForASummary) {
    const struct {
        int summary, when, on_page, in_group;
        bool shows;
    } cases[] = {
        {SUMMARY_VALUE, 0, 1, 1, false},
        {SUMMARY_VALUE, WHEN_ALWAYS, 0, 0, true},
        {SUMMARY_VALUE, WHEN_FIRST_ON_PAGE, 1, 0, true},
        {SUMMARY_VALUE, WHEN_FIRST_ON_PAGE, 0, 1, false},
        {SUMMARY_VALUE, WHEN_FIRST_IN_GROUP, 0, 1, true},
        {SUMMARY_VALUE, WHEN_FIRST_IN_GROUP, 1, 0, false},
        {SUMMARY_VALUE, WHEN_FIRST_ON_PAGE | WHEN_FIRST_IN_GROUP, 0, 1, true},
        {SUMMARY_TOTAL, 0, 0, 0, true},
        {SUMMARY_AVERAGE, 0, 0, 0, true},
        {SUMMARY_COUNT, 0, 1, 1, false},
        {SUMMARY_COUNT, WHEN_ALWAYS, 0, 0, true},
        {SUMMARY_MAX, 0, 0, 0, true},
        {SUMMARY_MIN, 0, 0, 0, true},
    };
    for (const auto &row : cases) {
        FieldRecord record = Dollars(1.0);
        record.SummaryType = static_cast<int16_t>(row.summary);
        record.SymbolWhen = static_cast<uint16_t>(row.when);
        record.DoubleSummary = 1.0;
        record.SummaryCount = 1;
        session->run.FirstOnPage = row.on_page;
        session->run.FirstInGroup = row.in_group;
        EXPECT_EQ(SymbolShows(session, &record), row.shows);
        EXPECT_EQ(Printed(record), row.shows ? " $1.00" : " 1.00");
    }
}

TEST_F(FormatFieldRules, CurrencySymbolNeedsItsKind) {
    FieldRecord record = Dollars(1.0);
    record.SymbolWhen = WHEN_ALWAYS;
    for (int kind : {SYMBOL_NONE, SYMBOL_PERCENT}) {
        record.SymbolKind = static_cast<uint16_t>(kind);
        EXPECT_EQ(Printed(record), " 1.00");
    }
}

// ---- summaries

TEST_F(FormatFieldRules, SummaryIsConsumedAsItPrints) {
    const struct {
        int type;
        const char *first, *second;
        int32_t sum_left, count_left;
    } cases[] = {{SUMMARY_TOTAL, " 70", " 0", 0, 4}, {SUMMARY_AVERAGE, " 17", " 0", 0, 0},
                 {SUMMARY_COUNT, " 4", " 0", 70, 0}, {SUMMARY_MAX, " 70", " 0", 0, 4},
                 {SUMMARY_MIN, " 70", " 0", 0, 4},   {SUMMARY_VALUE, " 9", " 9", 70, 4}};
    for (const auto &row : cases) {
        FieldRecord record = Number(9);
        record.SummaryType = static_cast<int16_t>(row.type);
        record.FieldFlags = FIELD_RETAIN; // makes no difference
        record.LongSummary = 70;
        record.DoubleSummary = 70.0;
        record.SummaryCount = 4;
        EXPECT_EQ(Printed(record), row.first) << row.type;
        EXPECT_EQ(+record.LongSummary, row.sum_left);
        EXPECT_EQ(+record.DoubleSummary, row.sum_left);
        EXPECT_EQ(+record.SummaryCount, row.count_left);
        EXPECT_EQ(Printed(record), row.second) << row.type;
    }
}

TEST_F(FormatFieldRules, SummaryOfADoubleReadsItsDoubleSide) {
    const struct {
        int type;
        const char *text;
    } cases[] = {{SUMMARY_TOTAL, " 10.00"}, {SUMMARY_AVERAGE, " 2.50"}, {SUMMARY_COUNT, " 4.00"}};
    for (const auto &row : cases) {
        FieldRecord record = Double(1.0, 2);
        record.SummaryType = static_cast<int16_t>(row.type);
        record.DoubleSummary = 10.0;
        record.SummaryCount = 4;
        EXPECT_EQ(Printed(record), row.text);
    }
}

TEST_F(FormatFieldRules, AverageOverACountOfZeroPrintsTheSum) {
    FieldRecord record = Double(1.0, 2);
    record.SummaryType = SUMMARY_AVERAGE;
    EXPECT_EQ(Printed(record), " 0.00");
    record.DoubleSummary = 3.0;
    record.SummaryCount = -1;
    EXPECT_EQ(Printed(record), " 3.00");
}

TEST_F(FormatFieldRules, UnknownSummaryPrintsZeroAndConsumesNothing) {
    FieldRecord whole = Number(9);
    FieldRecord real = Double(9.0, 2);
    for (FieldRecord *record : {&whole, &real}) {
        record->LongSummary = 70;
        record->DoubleSummary = 70.0;
        record->SummaryCount = 4;
        for (const int type : {-1, 6, 32767}) {
            record->SummaryType = static_cast<int16_t>(type);
            EXPECT_EQ(Printed(*record), record == &whole ? " 0" : " 0.00") << type;
        }
        EXPECT_EQ(+record->LongSummary, 70);
        EXPECT_EQ(+record->DoubleSummary, 70.0);
        EXPECT_EQ(+record->SummaryCount, 4);
    }
}

TEST_F(FormatFieldRules, CountThatPrintsTwiceShowsZeroTheSecondTime) {
    FieldRecord record = Number(0);
    record.SummaryType = SUMMARY_COUNT;
    record.SummaryCount = 12;
    EXPECT_EQ(Printed(record), " 12");
    EXPECT_EQ(Printed(record), " 0");
}

// ---- the other types

TEST_F(FormatFieldRules, LogicalPrintsItsWords) {
    FieldRecord record = Field(TYPE_LOGICAL);
    EXPECT_EQ(Printed(record), "N");
    record.LongValue = 2;
    EXPECT_EQ(Printed(record), "Y");
    Set(record.TrueText, "paid in full");
    EXPECT_EQ(Printed(record), "paid in full");
}

TEST_F(FormatFieldRules, DatePrintsInItsFormat) {
    FieldRecord record = Field(TYPE_DATE);
    record.LongValue = 101;
    EXPECT_EQ(Printed(record), "01/01/00");
    EXPECT_EQ(+record.LongValue, 101); // expanded on a copy
    record.LongValue = 0;
    EXPECT_EQ(Printed(record), "");
}

TEST_F(FormatFieldRules, PictureLeavesTheBufferAsItIs) {
    EXPECT_EQ(PrintedOnce(Field(TYPE_PICTURE)), "as it was");
}

TEST_F(FormatFieldRules, TextTakesOneCaseRuleInOrderOfPreference) {
    EXPECT_EQ(TextWith(0, "De Jong-vries "), "De Jong-vries ");
    EXPECT_EQ(TextWith(FIELD_UPPER | FIELD_LOWER | FIELD_CAPITALIZE, "aB c"), "AB C");
    EXPECT_EQ(TextWith(FIELD_LOWER | FIELD_CAPITALIZE, "aB C"), "ab c");
    EXPECT_EQ(TextWith(FIELD_CAPITALIZE, "aB  cD"), "Ab  Cd");
}

TEST_F(FormatFieldRules, CapitalizingRaisesOnlyTheLetterAfterABlank) {
    const HostLocale german;
    ASSERT_TRUE(german.Set());
    EXPECT_EQ(TextWith(FIELD_CAPITALIZE, "\xE4rger \xC4RGER"), "\xE4rger \xC4rger");
    EXPECT_EQ(TextWith(FIELD_CAPITALIZE, "anna SMITH-JONES o'neil"), "Anna Smith-jones O'neil");
}

TEST_F(FormatFieldRules, TrimmingCutsTrailingBlanksBesideAnyCaseRule) {
    EXPECT_EQ(TextWith(FIELD_TRIM, "  ab  "), "  ab");
    EXPECT_EQ(TextWith(FIELD_TRIM | FIELD_UPPER, "ab  "), "AB");
    EXPECT_EQ(TextWith(FIELD_TRIM, "   "), "");
}

TEST_F(FormatFieldRules, NullTextIsLeftAlone) {
    FieldRecord record = Field(TYPE_TEXT);
    record.FieldFlags = FIELD_UPPER | FIELD_TRIM;
    EXPECT_EQ(Printed(record), "as it was");
    EXPECT_EQ(+record.TextValue, nullptr);
}

// ---- damaged records

TEST_F(FormatFieldRules, TextsWithoutTerminatorEndWithTheirField) {
    FieldRecord record = Dollars(-1.0);
    record.SymbolWhen = WHEN_ALWAYS;
    std::memset(record.CurrencySymbol, 'c', sizeof record.CurrencySymbol);
    std::memset(record.NegativePrefix, 'p', sizeof record.NegativePrefix);
    std::memset(record.NegativeSuffix, 's', sizeof record.NegativeSuffix);
    EXPECT_EQ(Printed(record), "ppppccc1.00ssss");
    std::memset(record.ZeroText, 'z', sizeof record.ZeroText);
    record.DoubleValue = 0.0;
    EXPECT_EQ(Printed(record), std::string(21, 'z'));
    FieldRecord logical = Field(TYPE_LOGICAL);
    std::memset(logical.FalseText, 'f', sizeof logical.FalseText);
    EXPECT_EQ(Printed(logical), std::string(21, 'f'));
}

TEST_F(FormatFieldRules, NeverWritesPastTheBuffer) {
    for (int decimals : {295, 300, 500, 32767}) {
        FieldRecord record = Double(-1e9, decimals);
        Set(record.NegativePrefix, "abc");
        Set(record.NegativeSuffix, "xyz");
        EXPECT_LE(Printed(record).size(), static_cast<size_t>(MAX_LABEL_TEXT));
        record.ValueType = TYPE_NUMERIC;
        record.LongValue = -5;
        EXPECT_LE(Printed(record).size(), static_cast<size_t>(MAX_LABEL_TEXT));
    }
}
