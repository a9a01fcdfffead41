// Dates written as text.
#pragma once

#include "state/session.h"

namespace tessarine {

enum class DateShape { NotADate, Invalid, Valid };

// Reads a text with one delimiter at each end. *date is year x 10000 + month x 100 + day, -1 for
// an impossible date.
DateShape ParseDateText(const Session *session, const char *text, int32_t *date);

} // namespace tessarine
