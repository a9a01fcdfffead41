// Groups of records: where one ends, and what is printed then.
#pragma once

#include "state/session.h"

namespace tessarine {

int DetectBreak(Session *session); // the level, or BreakCount for none; prints the footers due
void PrintHeaders(Session *session, int level);

} // namespace tessarine
