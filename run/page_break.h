// When a page ends.
#pragma once

#include "state/session.h"

namespace tessarine {

int PageBreak(Session *session, int section); // 1 when a page was ended or the run is cancelled

} // namespace tessarine
