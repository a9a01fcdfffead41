// Dates as text; a date is the number year x 10000 + month x 100 + day.
#pragma once

#include "state/session.h"

namespace tessarine {

// Writes the date in the record's DateFormat and with its DateDelimiter; a value of the old form
// yymmdd falls in the 1900s. 0 and an unknown format give an empty text. out has
// MAX_LABEL_TEXT + 1 bytes.
void FormatDate(const Session *session, const FieldRecord *record, int32_t value, char *out);

} // namespace tessarine
