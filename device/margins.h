// The check of items against the margins.
#pragma once

#include "state/session.h"

namespace tessarine {

// The row of the first item beyond the bounds, or 0; with showMessage a warning tells of it.
int ValidateMargins(Session *session, int showMessage);

} // namespace tessarine
