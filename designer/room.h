// Making room in a form, and taking it back, by the size of the selected group's rectangle.
#pragma once

#include "state/session.h"

namespace tessarine {

void ExpandAcross(Session *session);
void ExpandDown(Session *session);
void CompressAcross(Session *session); // beeps when an item is in the way
void CompressDown(Session *session);

} // namespace tessarine
