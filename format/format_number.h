// Numbers as text.
#pragma once

#include "state/session.h"

namespace tessarine {

// Writes at most MAX_LABEL_TEXT characters to out and returns it. With decimals of 1 or more the
// last place is rounded half up, with 0 the fraction is dropped. A whole part that doesn't fit 32
// bits is left out: before decimals, which are zeros then, stands a 0.
char *FormatDouble(double value, int decimals, char decimalChar, char *out);

// A number by the record's rules: digits, groups, symbol, prefix, suffix, the text for zero. real
// counts for TYPE_DOUBLE, whole for TYPE_NUMERIC. out has MAX_LABEL_TEXT + 1 bytes.
void FormatNumber(const Session *session, const FieldRecord *record, int32_t whole, double real,
                  char *out);

} // namespace tessarine
