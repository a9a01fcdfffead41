#include "expr/functions.h"

#include "expr/date_functions.h"
#include "expr/number_functions.h"
#include "expr/text_functions.h"

namespace tessarine {

namespace {

constexpr OperationRow functions[] = {
    {OP_LEN, FunctionLen},           {OP_UPPER, FunctionUpper}, {OP_LOWER, FunctionLower},
    {OP_TRIM, FunctionTrim},         {OP_WORD, FunctionWord},   {OP_CHAR, FunctionChar},
    {OP_MIN, FunctionMin},           {OP_MAX, FunctionMax},     {OP_VAL, FunctionVal},
    {OP_ROUND, FunctionRound},       {OP_ABS, FunctionAbs},     {OP_WEEKDAY, FunctionWeekday},
    {OP_DAY, FunctionDay},           {OP_MONTH, FunctionMonth}, {OP_YEAR, FunctionYear},
    {OP_LEFT, FunctionLeft},         {OP_RIGHT, FunctionRight}, {OP_STR, FunctionStr},
    {OP_DTOC, FunctionDtoc},         {OP_DTOS, FunctionDtos},   {OP_CTOD, FunctionCtod},
    {OP_MONTHTOS, FunctionMonthtos},
};
static_assert(InCodeOrder(functions));

} // namespace

int PerformFunction(const Operation &operation) { return PerformByTable(functions, operation); }

} // namespace tessarine
