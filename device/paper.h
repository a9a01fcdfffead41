// What hangs on the printer's paper.
#pragma once

#include "state/session.h"

namespace tessarine {

// Recomputes all that hangs on the printer: header, measuring context, paper, bars.
int ProcessPrinterData(Session *session);
// What the margins leave of the paper's width, in form units.
int FullBarWidth(const Session *session);
// The width of a section's bar on the paper, in form units.
int BarWidth(const Session *session, int section);

} // namespace tessarine
