// The only way to change FormModified.
#pragma once

#include "state/session.h"

namespace tessarine {

// Tells the parent window with 1025 or 1026 when the state really changes.
void SetModified(Session *session, int modified);

} // namespace tessarine
