#include "format/format_date.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

std::string Date(int32_t value, int format, const char *delimiter = "/") {
    FieldRecord record{};
    record.DateFormat = static_cast<int16_t>(format);
    std::memcpy(record.DateDelimiter, delimiter, std::strlen(delimiter));
    char text[MAX_LABEL_TEXT + 1] = "stale";
    tessarine::FormatDate(nullptr, &record, value, text);
    return text;
}

} // namespace

TEST(FormatDate, WritesEachOfTheNineForms) {
    const char *expected[] = {"03/04/97",    "04/03/97",      "03/04/1997",
                              "Mar 4, 1997", "March 4, 1997", "04/03/1997",
                              "4 Mar, 1997", "4 March, 1997", "1997 03/04"};
    for (int format = 0; format < 9; ++format)
        EXPECT_EQ(Date(19970304, format), expected[format]) << format;
}

TEST(FormatDate, DayOfTwoDigitsStaysWholeBesideTheMonthName) {
    EXPECT_EQ(Date(19971231, 3), "Dec 31, 1997");
    EXPECT_EQ(Date(19970910, 7), "10 September, 1997");
}

TEST(FormatDate, NamesEveryMonth) {
    const char *names[] = {"January", "February", "March",     "April",   "May",      "June",
                           "July",    "August",   "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month) {
        const std::string name = names[month - 1];
        EXPECT_EQ(Date(19970001 + 100 * month, 4), name + " 1, 1997");
        EXPECT_EQ(Date(19970001 + 100 * month, 3), name.substr(0, 3) + " 1, 1997");
    }
}

TEST(FormatDate, ZeroIsAnEmptyText) {
    for (int format = 0; format < 10; ++format) EXPECT_EQ(Date(0, format), "");
}

TEST(FormatDate, UnknownFormIsAnEmptyText) {
    EXPECT_EQ(Date(19970304, 9), "");
    EXPECT_EQ(Date(19970304, -1), "");
    EXPECT_EQ(Date(19970304, 32767), "");
}

TEST(FormatDate, OldFormOfADateFallsInTheNineteenHundreds) {
    EXPECT_EQ(Date(101, 0), "01/01/00");
    EXPECT_EQ(Date(101, 2), "01/01/1900");
    EXPECT_EQ(Date(970304, 2), "03/04/1997");
    EXPECT_EQ(Date(991230, 2), "12/30/1999");
}

TEST(FormatDate, LastDayOfTheOldFormIsTakenDigitByDigit) {
    EXPECT_EQ(Date(991231, 2), "31//9912"); // six digits, taken where they fall
    EXPECT_EQ(Date(991231, 4), "December , 9912");
}

TEST(FormatDate, MonthOutOfRangeIsForcedIntoTheYearForItsName) {
    EXPECT_EQ(Date(19970004, 3), "Jan 4, 1997");
    EXPECT_EQ(Date(19979904, 3), "Dec 4, 1997");
    EXPECT_EQ(Date(19979904, 0), "99/04/97");
}

TEST(FormatDate, UsesTheFieldsDelimiter) {
    EXPECT_EQ(Date(19970304, 0, "-"), "03-04-97");
    EXPECT_EQ(Date(19970304, 8, "."), "1997 03.04");
    EXPECT_EQ(Date(19970304, 0, ""), "030497");
    EXPECT_EQ(Date(19970304, 0, "-?"), "03-04-97"); // a damaged record without terminator
}

TEST(FormatDate, SurvivesEveryValue) {
    for (int32_t value : {INT32_MIN, -1981000000, -19000000, -18999995, -1, 1, 999999, INT32_MAX})
        for (int format = 0; format < 9; ++format) EXPECT_LT(Date(value, format).size(), 30u);
    EXPECT_EQ(Date(-19000000, 2), "//0");
    EXPECT_EQ(Date(INT32_MAX, 2), "48/36/2147");
    EXPECT_EQ(Date(INT32_MIN, 2), "84/83/-212");
}
