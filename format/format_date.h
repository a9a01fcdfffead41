// Dates as text; a date is the number year x 10000 + month x 100 + day.
#pragma once

#include "frame/session.h"

namespace tessarine {

void FormatDate(const Session *session, const FieldRecord *record, int32_t value, char *out);

} // namespace tessarine
