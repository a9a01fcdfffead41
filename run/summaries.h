// What the fields of a run sum up.
#pragma once

#include "state/session.h"

namespace tessarine {

// Starts a field's summary anew; a maximum or minimum starts at the values' own.
void ResetSummary(FieldRecord *field, int32_t longValue, double doubleValue);
void AccumulateSummaries(Session *session);

} // namespace tessarine
