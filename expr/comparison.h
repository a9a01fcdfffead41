// Comparison and logic: codes 507 to 517. The result is logical.
#pragma once

#include "expr/operations.h"

namespace tessarine {

// ANSWER_NOT_MINE for any other code. Texts that are compared lose their trailing blanks.
int PerformComparison(const Operation &operation);

} // namespace tessarine
