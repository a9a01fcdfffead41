// The frame of a label on its sheet.
#pragma once

#include "state/session.h"

namespace tessarine {

void PrintLabelFrame(Session *session, int row, uint32_t outline);

} // namespace tessarine
