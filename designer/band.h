// The rubber band, which makes the group.
#pragma once

#include "state/session.h"

namespace tessarine {

void BeginBand(Session *session, int x, int y);
void EndBand(Session *session); // fatal with code 15 when the form has no group item

} // namespace tessarine
