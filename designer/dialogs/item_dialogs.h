// Dialogs on the selected item, and on the grid.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK PosParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK OutlineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK LineParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK BackgroundParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK GridParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
