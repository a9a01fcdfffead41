// The start of a designer session.
#pragma once

#include "state/session.h"

namespace tessarine {

int form(FormParams *params); // 0 or a code

} // namespace tessarine
