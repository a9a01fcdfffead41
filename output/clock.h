// The local clock of a session.
#pragma once

#include "state/session.h"

namespace tessarine {

void ReadLocalClock(Session *session); // RunDate and TimeText

} // namespace tessarine
