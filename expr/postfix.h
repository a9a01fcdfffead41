// Infix cells to postfix cells.
#pragma once

#include "state/session.h"

namespace tessarine {

// 1002 on success; any other value after a message: the cell at which it stopped. postfix has
// MAX_CELLS places; a list whose postfix would pass them is refused.
int InfixToPostfix(Session *session, const Cell *infix, Cell *postfix);

} // namespace tessarine
