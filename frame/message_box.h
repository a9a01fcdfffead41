// The one routine for message boxes.
#pragma once

#include "state/windows.h"

struct Session;

namespace tessarine {

// Shows a box and returns the button, as MessageBoxA. A null title counts as empty.
int ShowBox(HWND owner, const char *text, const char *title = "", UINT flags = MB_OK);

// The same over the session's window. A failure that a callback met under the box goes on
// unwinding here.
int ShowSessionBox(const Session *session, const char *text, const char *title = "",
                   UINT flags = MB_OK);

} // namespace tessarine
