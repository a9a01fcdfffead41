// The one routine for message boxes.
#pragma once

#include "frame/windows.h"

namespace tessarine {

// Shows a box and returns the button, as MessageBoxA. A null title counts as empty.
int ShowBox(HWND owner, const char *text, const char *title = "", UINT flags = MB_OK);

} // namespace tessarine
