// The conditional: .IF., .THEN., .ELSE. There is no short circuit: condition and both branches
// are evaluated, and a division by zero in the branch not taken is forgiven by FIELD_BRANCH.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int PerformConditional(const Operation &operation); // ANSWER_NOT_MINE for any other code

} // namespace tessarine
