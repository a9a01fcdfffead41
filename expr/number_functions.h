// Functions of numbers.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int FunctionMin(const Operation &operation);
int FunctionMax(const Operation &operation);
int FunctionVal(const Operation &operation);
int FunctionRound(const Operation &operation);
int FunctionAbs(const Operation &operation);

} // namespace tessarine
