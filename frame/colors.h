// The common colour dialog, and brushes as forms pack them.
#pragma once

#include <cstdint>

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

// The chosen colour, or color when the user cancelled. fullOpen shows the custom colour part.
uint32_t EditColor(HWND owner, uint32_t color, int fullOpen);

int ReadRepLogbrush(const RepLogbrush *packed, LOGBRUSH *brush);  // 1
int WriteRepLogbrush(const LOGBRUSH *brush, RepLogbrush *packed); // 0: doesn't fit 16 bits

} // namespace tessarine
