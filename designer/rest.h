// How what is in progress on a form comes to rest.
#pragma once

#include "state/session.h"

namespace tessarine {

// Ends a drag or a placement without its effect, and what could be undone: the form gives way to
// another. Nothing happens in a session that has no designer.
void RestDesigner(Session *session);

} // namespace tessarine
