// The function library: codes 527 to 548.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int PerformFunction(const Operation &operation); // ANSWER_NOT_MINE for any other code

} // namespace tessarine
