// The display resources of a session.
#pragma once

#include "state/session.h"

namespace tessarine {

void InitDeviceProp(Session *session);    // fatal with code 12
void ReleaseScreen(Session *session);     // the drawing context, or that of a run to the printer
void ReleaseDeviceProp(Session *session); // contexts, pens, brushes

} // namespace tessarine
