// The names of the months.
#pragma once

namespace tessarine {

inline constexpr const char *ShortMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
inline constexpr const char *LongMonths[12] = {"January",   "February", "March",    "April",
                                               "May",       "June",     "July",     "August",
                                               "September", "October",  "November", "December"};

} // namespace tessarine
