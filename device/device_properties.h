// The display resources of a session.
#pragma once

#include "frame/session.h"

namespace tessarine {

void InitDeviceProp(Session *session);    // fatal with code 12
void ReleaseScreen(Session *session);     // the drawing context, or that of a run to the printer
void ReleaseDeviceProp(Session *session); // contexts, bitmap, pens, brushes, as CloseSession orders
// Computes the view's size from the window and makes the offscreen bitmap for it.
void ResizeCanvas(Session *session);

} // namespace tessarine
