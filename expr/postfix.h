// Infix cells to postfix cells.
#pragma once

#include "frame/session.h"

namespace tessarine {

constexpr int MAX_POSTFIX = 2 * MAX_CELLS; // room for the placeholders of unary operators

// 1002 on success; the cell at which it stopped after a message. postfix has MAX_POSTFIX places.
int InfixToPostfix(Session *session, const uint16_t *infix, uint16_t *postfix);

} // namespace tessarine
