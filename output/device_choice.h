// The dialog that asks for the output device.
#pragma once

#include "state/session.h"

namespace tessarine {

int AskDevice(Session *session); // 0 screen, 1 printer, 2 disk file, -1 cancelled
INT_PTR CALLBACK DeviceParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
