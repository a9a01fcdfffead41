// Expression text as cells, with a row of the field table for every operand.
#pragma once

#include "state/session.h"

namespace tessarine {

// 1, or 0 after a message: errorPosition is then where reading stopped, and cells holds what was
// made so far, terminated. cells has room for MAX_CELLS.
int GenerateSymbols(Session *session, const char *text, Cell *cells, int32_t *errorPosition,
                    int mode);

} // namespace tessarine
