// One item in its design view.
#pragma once

#include "state/session.h"

namespace tessarine {

void PaintItem(Session *session, HDC device, int row);

} // namespace tessarine
