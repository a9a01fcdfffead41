// A trial before the run.
#pragma once

#include "state/session.h"

namespace tessarine {

// Offers trial records, for aligning forms in the printer: every section with the values that
// stand, each time on a sheet of its own.
void TrialPrint(Session *session);

} // namespace tessarine
