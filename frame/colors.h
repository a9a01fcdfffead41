// The common colour dialog.
#pragma once

#include <cstdint>

#include "frame/windows.h"

namespace tessarine {

// The chosen colour, or color when the user cancelled. fullOpen shows the custom colour part.
uint32_t EditColor(HWND owner, uint32_t color, int fullOpen);

} // namespace tessarine
