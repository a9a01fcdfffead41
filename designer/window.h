// The designer's window: what its messages do.
#pragma once

#include "state/session.h"

namespace tessarine {

LRESULT CALLBACK FrWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// For an edit control that the host keeps as a child of the designer's window: Enter gives the
// focus back to that window.
LRESULT CALLBACK FrEditSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
