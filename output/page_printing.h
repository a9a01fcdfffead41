// Printing finished pages of a preview.
#pragma once

#include "state/session.h"

namespace tessarine {

// 1, also when the user cancelled; 0 after a message.
int PrintPages(Session *session, int askRange);
INT_PTR CALLBACK PrintParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
