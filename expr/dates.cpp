#include "expr/dates.h"

namespace tessarine {

namespace {

constexpr int32_t OLD_DATE_MAX = 999999;
constexpr int32_t OLD_DATE_START = 19000000;

int DaysOfMonth(int month, int year) {
    switch (month) {
    case 2: return year % 4 == 0 ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11: return 30;
    default: return 31;
    }
}

} // namespace

int32_t ExpandedDate(int32_t date) { return date <= OLD_DATE_MAX ? date + OLD_DATE_START : date; }

int WeekdayOf(int32_t date) {
    const int year = YearOf(date) - 1900;
    int days = 365 * year;
    if (year > 0) days += (year - 1) / 4 + 1;
    for (int month = 1; month < MonthOf(date); ++month) days += DaysOfMonth(month, year);
    const int weekday = (days + DayOf(date) + 6) % 7;
    return weekday < 0 ? weekday + 7 : weekday; // years before 1900
}

} // namespace tessarine
