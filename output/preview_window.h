// The preview window of a run.
#pragma once

#include "state/session.h"

namespace tessarine {

enum PreviewCommand {
    COMMAND_PAGE_UP = 600,
    COMMAND_PAGE_DOWN = 601,
    COMMAND_LINE_UP = 602,
    COMMAND_LINE_DOWN = 603,
    COMMAND_LEFT = 604,
    COMMAND_RIGHT = 605,
    COMMAND_SAVE = 624,
    COMMAND_JUMP = 694,
    COMMAND_PRINT = 695,
    COMMAND_FIT = 696,
    COMMAND_EXIT = 697
};

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Enables the commands of the menu that make sense now.
void SetMenuState(Session *session);

} // namespace tessarine
