// Digits of numbers.
#pragma once

#include "frame/session.h"

namespace tessarine {

char *FormatDouble(double value, int decimals, char decimalChar, char *out);

} // namespace tessarine
