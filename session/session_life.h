// The common start and end of all sessions.
#pragma once

#include "state/session.h"

namespace tessarine {

// Tables, printer, window, display resources, form. 0 or a code.
int CreateFormWindow(Session *session, uint32_t style, int x, int y, int width, int height);
// Asks about a designer's unsaved changes. False when the close is over, since the user cancelled
// or the form couldn't be saved: the host has been told with 631.
bool SettleClose(Session *session);
// Releases all that a session holds, except its own memory and its slot, and tells the host.
void ReleaseSession(Session *session);
// Both, one behind the other.
void CloseSession(Session *session);

} // namespace tessarine
