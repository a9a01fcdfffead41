// Field values on the page.
#pragma once

#include "state/session.h"

namespace tessarine {

void PrintField(Session *session, HDC device, int row);

} // namespace tessarine
