// Editing an expression in its dialog.
#pragma once

#include "state/session.h"

namespace tessarine {

// The type of the result, or -1 on Cancel. newTokens has room for MAX_CELLS; the caller copies it
// over the old cells, terminator included. mode 3 asks for a calculation field's description too.
int ModifyExp(Session *session, const Cell *tokens, Cell *newTokens, const char *title, int mode,
              HWND owner);

} // namespace tessarine
