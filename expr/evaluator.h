// The value of a postfix list.
#pragma once

#include "state/session.h"

namespace tessarine {

// 1002 on success, any other value after a message. Of result only ValueType, LongValue,
// DoubleValue and TextValue are written; with run, a text is a new block for OurFree. An empty
// list leaves result as it was.
int EvaluateExpression(Session *session, const Cell *postfix, FieldRecord *result, int run);
int ApplyOperator(Session *session, int leftCell, int rightCell, int op, FieldRecord *result,
                  int run);

} // namespace tessarine
