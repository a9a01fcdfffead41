// Functions of dates.
#pragma once

#include "expr/operations.h"

namespace tessarine {

int FunctionWeekday(const Operation &operation);
int FunctionDay(const Operation &operation);
int FunctionMonth(const Operation &operation);
int FunctionYear(const Operation &operation);
int FunctionDtoc(const Operation &operation);
int FunctionDtos(const Operation &operation);
int FunctionCtod(const Operation &operation);
int FunctionMonthtos(const Operation &operation);

} // namespace tessarine
