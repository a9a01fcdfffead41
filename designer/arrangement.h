// How every arrangement of a group begins and ends.
#pragma once

#include "state/session.h"

namespace tessarine {

// Keeps an undo image and marks the members; false when no group is selected.
bool BeginArrangement(Session *session);
// Selects the group in its new row. For an arrangement that has changed something.
void EndArrangement(Session *session);

} // namespace tessarine
