// All that the designer can be asked to do.
#pragma once

#include "canvas/command_table.h"

namespace tessarine {

CommandTable DesignerCommands();

// Carries out a command of the designer's window, wParam as WM_COMMAND has it. What could be undone
// is given up first unless the command keeps it. False when there is no such command.
bool RunDesignerCommand(Session *session, WPARAM wParam);

} // namespace tessarine
