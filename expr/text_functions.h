// Functions of texts.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int FunctionLen(const Operation &operation);
int FunctionUpper(const Operation &operation);
int FunctionLower(const Operation &operation);
int FunctionTrim(const Operation &operation);
int FunctionWord(const Operation &operation);
int FunctionChar(const Operation &operation);
int FunctionLeft(const Operation &operation);
int FunctionRight(const Operation &operation);
int FunctionStr(const Operation &operation);

} // namespace tessarine
