// Messages that are thrown away unseen, since what they tell has become untrue.
#pragma once

#include "state/windows.h"

namespace tessarine {

// The first of a range that waits for the window; false when there is none. The end of the program
// isn't lost among them.
bool DropMessage(HWND window, UINT first, UINT last);
// All of them.
void DropMessages(HWND window, UINT first, UINT last);

} // namespace tessarine
