// How far an item may go, in form units.
#pragma once

#include "state/session.h"

namespace tessarine {

// LeftLimit, TopLimit, RightLimit and BottomLimit of the form.
RECT FormLimits(const Session *session);
int PageLimit(const Session *session); // printable height of the page
// What page header, report header and a detail section may measure together with the others that
// share a page with them; INT_MAX for a section without such a bound.
int MostBarHeight(const Session *session, int section);
bool LiesOutside(const Session *session, const RECT &place); // the start of OutOfBounds

} // namespace tessarine
