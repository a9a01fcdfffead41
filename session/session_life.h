// The common start and end of all sessions.
#pragma once

#include "state/session.h"

namespace tessarine {

// Tables, printer, window, display resources, form. 0 or a code.
int CreateFormWindow(Session *session, uint32_t style, int x, int y, int width, int height);
// Releases all that a session holds, except its own memory and its slot, and tells the host.
void CloseSession(Session *session);

} // namespace tessarine
