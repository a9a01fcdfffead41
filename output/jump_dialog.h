// The dialog that asks for a page of a preview.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
