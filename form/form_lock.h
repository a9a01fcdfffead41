// The open handle by which a session keeps its form's file.
#pragma once

#include "state/session.h"

namespace tessarine {

// Gives the file free; nothing happens in a session that keeps none.
void ReleaseLock(Session *session);

} // namespace tessarine
