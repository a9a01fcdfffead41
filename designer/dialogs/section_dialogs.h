// Dialogs on a section and its sort and break fields.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK SecSortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK SecBreakParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK EditSecParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
