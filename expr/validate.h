// Type check and copies of expressions.
#pragma once

#include "state/session.h"

namespace tessarine {

int ValidateExp(Session *session, const Cell *cells, int mode); // the type, 0 after a message
// Copies a list up to its end, which the copy always has; MAX_CELLS places hold it.
void CopyCells(const Cell *from, Cell *to);
// Copies a list for a copied field or item; 0 after a message.
int CopyCreateExp(Session *session, const Cell *source, Cell *target);
// The text of a list as a user writes it, at most size - 1 characters. Gives the place in it where
// the first cell comes up again for the last time, or 0.
int ExpressionText(const Session *session, const Cell *cells, char *text, int size);

} // namespace tessarine
