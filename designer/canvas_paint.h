// The repaint of the designer's window: offscreen, then to the screen by one copy, handles and the
// focus rectangle on top.
#pragma once

#include "state/session.h"

namespace tessarine {

// Takes over a label that the host has changed, and lays the band and the canvas out anew.
void LayOutCanvas(Session *session);
void RepaintCanvas(Session *session); // nothing while PaintEnabled is 0
void RepaintAll(Session *session);    // with the rulers

} // namespace tessarine
