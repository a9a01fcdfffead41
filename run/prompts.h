// Asking the user fields of a form when a run starts.
#pragma once

#include "state/session.h"

namespace tessarine {

int AskUserFields(Session *session); // 1 when all have values, 0 when the user cancelled
INT_PTR CALLBACK DlgInputParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
