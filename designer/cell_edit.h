// An expression edited where it stands.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int CELLS_KEPT = -1; // the user cancelled

// Lets the user edit the cells. The type of their value, or CELLS_KEPT.
int EditCells(Session *session, Cell *cells, const char *title, int mode);

} // namespace tessarine
