// Sums, differences, products and quotients, and the joining of texts.
#pragma once

#include "expr/operations.h"

namespace tessarine {

// Codes 503 to 506, and by the headers of conditionals and summaries 519 to 526; ANSWER_NOT_MINE
// for any other code.
int PerformArithmetic(const Operation &operation);

} // namespace tessarine
