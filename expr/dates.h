// The parts of a date, the number year x 10000 + month x 100 + day.
#pragma once

#include <cstdint>

namespace tessarine {

constexpr int32_t YearOf(int32_t date) { return date / 10000; }
constexpr int32_t MonthOf(int32_t date) { return date / 100 % 100; }
constexpr int32_t DayOf(int32_t date) { return date % 100; }

// A date of the old form yymmdd gets its century.
int32_t ExpandedDate(int32_t date);
// 0 for Sunday to 6. It holds from March 1900 on, as 1900 counts as a leap year.
int WeekdayOf(int32_t date);

} // namespace tessarine
