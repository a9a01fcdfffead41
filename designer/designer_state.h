// What only the designer knows of a session: one object that the session owns from its first use
// until it is closed.
#pragma once

#include "state/session.h"

namespace tessarine {

struct Designer {
    int32_t PendingCommand; // -1 idle, else the number of the command in progress
    RECT FocusRect;         // form units
    uint32_t SnapToGrid;
    int32_t GridSize; // form units
    int32_t ExpressionMode;
};

// The session's designer, made with its start values when there is none. Fatal with code 3.
Designer &DesignerOf(Session *session);
// Gives an idle start to the designer, if the session has one.
void ResetDesigner(Session *session);

} // namespace tessarine
