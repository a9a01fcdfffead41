// The dialog that sets the printer up.
#pragma once

#include "state/session.h"

namespace tessarine {

// Lets the user set the printer up, as the designer's command does. 1, or 0 when it was cancelled.
int FrPrintOptions(Session *session);

} // namespace tessarine
