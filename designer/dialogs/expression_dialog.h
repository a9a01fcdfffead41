// The dialogs in which an expression is written: ExpParam, and with a description ExpParamField.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK ExpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
