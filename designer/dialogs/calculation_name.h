// The name of a calculation field, which a user types without the words in front of it.
#pragma once

#include <cstddef>

#include "state/windows.h"

namespace tessarine {

void ShowCalculationName(HWND dialog, int control, const char *name);
// Puts what was typed, at most 43 characters and trimmed, behind "CALC->" into name, which has
// size bytes. False, and name stays, when it is empty.
bool ReadCalculationName(HWND dialog, int control, char *name, size_t size);

} // namespace tessarine
