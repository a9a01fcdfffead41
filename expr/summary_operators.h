// The summary operators: .TOTAL-OF., .AVE-OF., .MAX-OF., .MIN-OF., .COUNT-OF.
#pragma once

#include "expr/operations.h"

namespace tessarine {

// Writes the operator's SummaryType into the operand, also without a run, which switches on the
// accumulation there, and reads what was accumulated so far. ANSWER_NOT_MINE for any other code.
int PerformSummary(const Operation &operation);

} // namespace tessarine
