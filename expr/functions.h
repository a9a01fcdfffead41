// The function library: codes 527 to 548.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int PerformFunction(const Operation &operation); // ANSWER_NOT_MINE for any other code

// Texts.
int FunctionLen(const Operation &operation);
int FunctionUpper(const Operation &operation);
int FunctionLower(const Operation &operation);
int FunctionTrim(const Operation &operation);
int FunctionWord(const Operation &operation);
int FunctionChar(const Operation &operation);
int FunctionLeft(const Operation &operation);
int FunctionRight(const Operation &operation);
int FunctionStr(const Operation &operation);

// Numbers.
int FunctionMin(const Operation &operation);
int FunctionMax(const Operation &operation);
int FunctionVal(const Operation &operation);
int FunctionRound(const Operation &operation);
int FunctionAbs(const Operation &operation);

// Dates.
int FunctionWeekday(const Operation &operation);
int FunctionDay(const Operation &operation);
int FunctionMonth(const Operation &operation);
int FunctionYear(const Operation &operation);
int FunctionDtoc(const Operation &operation);
int FunctionDtos(const Operation &operation);
int FunctionCtod(const Operation &operation);
int FunctionMonthtos(const Operation &operation);

} // namespace tessarine
