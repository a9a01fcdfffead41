// What is selected, and who is told of it.
#pragma once

#include "state/session.h"

namespace tessarine {

// The smallest item that holds the place, on equal areas the later row; 0 outside all.
int HitTest(Session *session, int x, int y);
// Selects a row: handles on the screen, FocusRect, and the host is told. 1.
int SelectItem(Session *session, int row);
void Deselect(Session *session); // ends a group too

} // namespace tessarine
