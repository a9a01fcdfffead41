// A field's current value as the text that is painted.
#pragma once

#include "state/session.h"

namespace tessarine {

// Formats the value of record into buffer (301 characters) and consumes a printed summary. For
// text fields the buffer is untouched and TextValue is changed in place. Always 1.
int FormatField(Session *session, FieldRecord *record, char *buffer);
// Whether the currency symbol or percent sign of a number shows on this row.
bool SymbolShows(const Session *session, const FieldRecord *record);

} // namespace tessarine
