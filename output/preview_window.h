// The preview window of a run.
#pragma once

#include "state/session.h"

namespace tessarine {

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Enables the commands of the menu that make sense now.
void SetMenuState(Session *session);

} // namespace tessarine
