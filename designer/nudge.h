// Arrow keys on an item.
#pragma once

#include "state/session.h"

namespace tessarine {

void NudgeItem(Session *session, int command); // COMMAND_LINE_UP to COMMAND_RIGHT

} // namespace tessarine
