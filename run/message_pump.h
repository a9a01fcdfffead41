// The user's turn during a run.
#pragma once

#include "state/session.h"

namespace tessarine {

// Gives waiting messages their turn. A cancelled run unwinds here with code 5.
void PumpMessages(Session *session);

} // namespace tessarine
