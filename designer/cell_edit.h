// An expression edited where it stands.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int CELLS_KEPT = -1; // the user cancelled

// Lets the user edit the cells, whose operands are given up for those of the edited list, which may
// stand in the same place. The type of its value, or CELLS_KEPT.
int EditCells(Session *session, const Cell *cells, Cell *edited, const char *title, int mode);

} // namespace tessarine
