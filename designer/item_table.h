// The order of the item table: section by section, each with its bar first and then its items by
// y and x. Nothing sorts the table; whatever writes it asks for its place here.
#pragma once

#include "state/session.h"

namespace tessarine {

enum { SHIFT_OPEN = 'B', SHIFT_REMOVE = 'D' };

// The row at which an item of the section with the rectangle FocusRect has its place.
int InsertionRow(Session *session, int section);
// Opens or removes count rows at the row and renews the BarItem of the sections. Does nothing when
// the rows don't fit the table.
void ShiftItems(Session *session, int row, int count, int operation);

} // namespace tessarine
