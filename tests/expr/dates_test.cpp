#include "expr/dates.h"

#include "frame/memory.h"
#include "tests/support/expressions.h"

using namespace tessarine;
using DateFunctions = Expressions;

TEST(Dates, PartsAreTheDigitsOfTheNumber) {
    EXPECT_EQ(YearOf(19971231), 1997);
    EXPECT_EQ(MonthOf(19971231), 12);
    EXPECT_EQ(DayOf(19971231), 31);
}

TEST(Dates, OldFormReachesUpToSixDigits) {
    const struct {
        int32_t given, expanded;
    } cases[] = {{971231, 19971231},   {999999, 19999999}, {1000000, 1000000},
                 {19970101, 19970101}, {101, 19000101},    {0, 19000000}};
    for (const auto &row : cases) EXPECT_EQ(ExpandedDate(row.given), row.expanded);
}

TEST(Dates, WeekdaysFollowTheCalendarFromMarch1900To2100) {
    // an independent count: 1 March 1900 was a Thursday
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int weekday = 4;
    for (int year = 1900; year < 2100; ++year)
        for (int month = year == 1900 ? 3 : 1; month <= 12; ++month) {
            const bool leap_day = month == 2 && year % 4 == 0;
            for (int day = 1; day <= lengths[month - 1] + leap_day; ++day) {
                ASSERT_EQ(WeekdayOf(year * 10000 + month * 100 + day), weekday);
                weekday = (weekday + 1) % 7;
            }
        }
}

TEST(Dates, The1900CountsAsALeapYear) { EXPECT_EQ(WeekdayOf(19000301) - WeekdayOf(19000228), 2); }

TEST(Dates, EveryNumberHasAWeekday) {
    for (int32_t date : {INT32_MIN, -1, 0, 1, 18999999, 18000101, 99999999, INT32_MAX}) {
        EXPECT_GE(WeekdayOf(date), 0);
        EXPECT_LE(WeekdayOf(date), 6);
    }
}

TEST_F(DateFunctions, PartsAreNumbersAndDayIsTheDayOfTheMonth) {
    EXPECT_EQ(Whole("_ {19971231} DAY"), 31);
    EXPECT_EQ(Whole("_ {19971231} MONTH"), 12);
    EXPECT_EQ(Whole("_ {19971231} YEAR"), 1997);
    EXPECT_EQ(Whole("_ {971231} YEAR"), 1997);
}

TEST_F(DateFunctions, WeekdayIsAName) {
    const char *names[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                           "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day) {
        Date("D" + std::to_string(day), 19971228 - 7 + day);
        EXPECT_EQ(TextOf("_ D" + std::to_string(day) + " WEEKDAY"), names[day]);
    }
    EXPECT_EQ(TextOf("_ {19971231} WEEKDAY"), "Wednesday");
}

TEST_F(DateFunctions, DryRunOfADateFunctionSetsTheTypeAlone) {
    for (const char *name : {"WEEKDAY", "DTOC", "DTOS"}) {
        const Outcome outcome = DryRun(std::string("_ {19971231} ") + name);
        EXPECT_EQ(outcome.type, TYPE_TEXT) << name;
        EXPECT_FALSE(outcome.has_text) << name;
    }
    for (const char *name : {"DAY", "MONTH", "YEAR"})
        EXPECT_EQ(DryRun(std::string("_ {19971231} ") + name).type, TYPE_NUMERIC) << name;
    EXPECT_EQ(DryRun("_ 'a' CTOD").type, TYPE_DATE);
}

TEST_F(DateFunctions, OtherTypesAreRefused) {
    for (const char *name : {"WEEKDAY", "DAY", "MONTH", "YEAR", "DTOC", "DTOS"})
        for (const char *operand : {"19971231", "1.5", "'a'", ".T."}) {
            const std::string list = std::string("_ ") + operand + " " + name;
            EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
            EXPECT_EQ(DryFailure(list), "Field type mismatch.") << list;
        }
    for (const char *list : {"_ 1 CTOD", "_ 1.5 CTOD", "_ .T. CTOD", "_ 1.5 MONTHTOS",
                             "_ 'a' MONTHTOS", "_ {19971231} MONTHTOS", "_ .T. MONTHTOS"})
        EXPECT_EQ(Failure(list), "Field type mismatch.") << list;
}

TEST_F(DateFunctions, DtocUsesTheOperandsFormatAndDelimiter) {
    FieldRecord *date = Date("D", 19971231);
    EXPECT_EQ(TextOf("_ D DTOC"), "12/31/97");
    date->DateFormat = 5;
    date->DateDelimiter[0] = '-';
    EXPECT_EQ(TextOf("_ D DTOC"), "31-12-1997");
}

TEST_F(DateFunctions, DtosIsSortableAndPutsTheOperandsFormatBack) {
    FieldRecord *date = Date("D", 19971231);
    date->DateFormat = 4;
    EXPECT_EQ(TextOf("_ D DTOS"), "1997 12/31");
    EXPECT_EQ(+date->DateFormat, 4);
}

TEST_F(DateFunctions, CtodReadsATextWithinTwoDelimiters) {
    Text("Q", "\"12/31/97\"");
    Text("B", "{12/31/1997}");
    EXPECT_EQ(Whole("_ Q CTOD", TYPE_DATE), 19971231);
    EXPECT_EQ(Whole("_ B CTOD", TYPE_DATE), 19971231);
}

TEST_F(DateFunctions, CtodOfABareDateOrAnotherTextIsNoDate) {
    NullText("N");
    Text("E", "");
    Text("W", "no date here");
    Text("I", "\"13/45/97\"");
    for (const char *list :
         {"_ '12/31/97' CTOD", "_ N CTOD", "_ E CTOD", "_ W CTOD", "_ I CTOD", "_ '1/1' CTOD"})
        EXPECT_EQ(Whole(list, TYPE_DATE), -1) << list;
}

TEST_F(DateFunctions, CtodOfADateGivesItBack) {
    EXPECT_EQ(Whole("_ {19971231} CTOD", TYPE_DATE), 19971231);
}

TEST_F(DateFunctions, MonthtosNamesTheMonthAndReachesOneYearBothWays) {
    const char *names[] = {"January", "February", "March",     "April",   "May",      "June",
                           "July",    "August",   "September", "October", "November", "December"};
    Number("M", 0);
    for (int month = -11; month <= 24; ++month) {
        Field("M")->LongValue = month;
        EXPECT_EQ(TextOf("_ M MONTHTOS"), names[(month + 11) % 12]) << month;
    }
}

TEST_F(DateFunctions, MonthtosOutOfRangeIsEmpty) {
    for (const char *list :
         {"_ 25 MONTHTOS", "_ -12 MONTHTOS", "_ 2147483647 MONTHTOS", "_ -2147483648 MONTHTOS"})
        EXPECT_EQ(TextOf(list), "") << list;
}

TEST_F(DateFunctions, MonthtosNeedsItsBlockInADryRunToo) {
    EXPECT_EQ(DryRun("_ 13 MONTHTOS _ 1 MONTHTOS +").type, TYPE_TEXT);
    const auto cells = Cells("_ 13 MONTHTOS");
    FailAllocation(1);
    const Outcome outcome = Evaluate(cells, 0);
    FailAllocation(0);
    EXPECT_NE(outcome.code, CELL_END);
    EXPECT_EQ(boxes.LastText(), "Ran out of memory for string calculation.");
}

TEST_F(DateFunctions, NamesWithoutMemoryFailWithoutALeak) {
    for (const char *name : {"WEEKDAY", "DTOC", "DTOS"}) {
        const auto cells = Cells(std::string("_ {19971231} ") + name);
        FailAllocation(1);
        const Outcome outcome = Evaluate(cells, 1);
        FailAllocation(0);
        EXPECT_NE(outcome.code, CELL_END);
        EXPECT_EQ(boxes.LastText(), "Ran out of memory for string calculation.") << name;
    }
}
