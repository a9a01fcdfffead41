#include "format/format_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "frame/whole_numbers.h"

using namespace tessarine;

namespace {

std::string Digits(double value, int decimals, char point = '.') {
    char text[MAX_LABEL_TEXT + 2] = "stale";
    text[MAX_LABEL_TEXT + 1] = '#';
    EXPECT_EQ(FormatDouble(value, decimals, point, text), text);
    EXPECT_EQ(text[MAX_LABEL_TEXT + 1], '#');
    return text;
}

} // namespace

TEST(FormatDouble, RoundsHalfUpAtTheLastPlace) {
    const struct {
        double value;
        int decimals;
        const char *text;
    } cases[] = {
        {0.5, 1, "0.5"},        {0.999, 2, "1.00"},       {0.994, 2, "0.99"},
        {1.25, 1, "1.3"},       {2.0, 3, "2.000"},        {0.05, 2, "0.05"},
        {1234.5, 2, "1234.50"}, {0.0, 2, "0.00"},         {9.99, 1, "10.0"},
        {0.125, 2, "0.13"},     {1e9, 1, "1000000000.0"}, {0.123456789, 9, "0.123456789"},
    };
    for (const auto &row : cases) EXPECT_EQ(Digits(row.value, row.decimals), row.text);
}

TEST(FormatDouble, WithoutDecimalsDropsTheFractionUnrounded) {
    EXPECT_EQ(Digits(2.7, 0), "2");
    EXPECT_EQ(Digits(0.3, 0), "0");
    EXPECT_EQ(Digits(2.7, -1), "2");
    EXPECT_EQ(Digits(2147483647.9, 0), "2147483647");
}

TEST(FormatDouble, WritesTheSignItself) {
    EXPECT_EQ(Digits(-1234.5, 2), "-1234.50");
    EXPECT_EQ(Digits(-2.7, 0), "-2");
}

TEST(FormatDouble, UsesTheGivenDecimalCharacter) { EXPECT_EQ(Digits(1.5, 1, ','), "1,5"); }

TEST(FormatDouble, EmptyDecimalCharacterEndsTheTextAtThePoint) {
    EXPECT_EQ(Digits(12.5, 1, 0), "12");
}

TEST(FormatDouble, ValueBeyondTheWholeRangePrintsNothingWithoutDecimals) {
    EXPECT_EQ(Digits(2147483648.0, 0), "");
    EXPECT_EQ(Digits(-1e20, 0), "-");
    EXPECT_EQ(Digits(std::nan(""), 0), "");
}

TEST(FormatDouble, ValueBeyondTheWholeRangeHasZerosAroundThePoint) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double value :
         {2147483648.0, 2147483648.25, 4294967296.5, 1e20, 1e300, infinite, std::nan("")}) {
        EXPECT_EQ(Digits(value, 2), "0.00") << value;
        EXPECT_EQ(Digits(value, 12), "0.000000000000") << value; // the power has wrapped below 0
    }
    EXPECT_EQ(Digits(-1e20, 1), "-0.0");
}

TEST(FormatDouble, LastValueOfTheWholeRangeKeepsItsDigits) {
    EXPECT_EQ(Digits(2147483647.0, 2), "2147483647.00");
    EXPECT_EQ(Digits(2147483647.75, 2), "2147483647.75");
}

TEST(FormatDouble, PowerOfTenWrapsFromTheTenthDecimalOn) {
    EXPECT_EQ(Digits(0.5, 10), "0.0705032704");               // 10 to the tenth is 1410065408
    EXPECT_EQ(Digits(0.25, 40), "1." + std::string(40, '0')); // the power has become 0
}

TEST(FormatDouble, NeverWritesPastTheBuffer) {
    EXPECT_EQ(Digits(1.5, 500).size(), static_cast<size_t>(MAX_LABEL_TEXT));
    EXPECT_EQ(Digits(-1e20, 32767).size(), static_cast<size_t>(MAX_LABEL_TEXT));
}

TEST(ToInt32, TruncatesAndGivesTheSmallestNumberOutOfRange) {
    EXPECT_EQ(ToInt32(2.9), 2);
    EXPECT_EQ(ToInt32(-2.9), -2);
    EXPECT_EQ(ToInt32(2147483647.9), INT32_MAX);
    EXPECT_EQ(ToInt32(-2147483648.9), INT32_MIN);
    EXPECT_EQ(ToInt32(2147483648.0), INT32_MIN);
    EXPECT_EQ(ToInt32(-1e300), INT32_MIN);
    EXPECT_EQ(ToInt32(std::nan("")), INT32_MIN);
}

TEST(WholeNumbers, WrapAround) {
    EXPECT_EQ(WrapAdd(INT32_MAX, 1), INT32_MIN);
    EXPECT_EQ(WrapSubtract(INT32_MIN, 1), INT32_MAX);
    EXPECT_EQ(WrapMultiply(65536, 65536), 0);
    EXPECT_EQ(WrapDivide(INT32_MIN, -1), INT32_MIN);
    EXPECT_EQ(WrapDivide(-7, 2), -3);
}
