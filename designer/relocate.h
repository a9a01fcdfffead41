// Moving items to their new places in the form and in the item table.
#pragma once

#include "state/session.h"

namespace tessarine {

// Moves a row by form units, snapped and kept in its section. The item's new row; with no distance
// the row as it is, not even snapped.
int RelocateItem(Session *session, int row, int dx, int dy);
// Applies FocusRect to the selected item or group; less than a pixel is no move, and bars don't
// move. Fatal with code 15 when no group is left.
void MoveItem(Session *session);
void CenterItem(Session *session); // across its section

} // namespace tessarine
