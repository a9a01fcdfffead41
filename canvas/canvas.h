// The canvas of a session's window: a scrolled view that is drawn offscreen, in form units, and
// copied to the window. A band may lie above it, at negative distance from its origin.
#pragma once

#include "state/session.h"

namespace tessarine {

// The offscreen contexts and the scroll bars that the session asks for. Nothing in a session
// without display resources; fatal with code 12.
void MakeCanvas(Session *session);
void ReleaseCanvas(Session *session);
// Computes the view's size from the window and makes the offscreen bitmap for it.
void ResizeCanvas(Session *session);

// Lets drawing begin at the view's origin, on the window and offscreen.
void ApplyOrigin(const Session *session);
// What shows of the page or the form, without the band.
RECT VisibleRectangle(const Session *session);
// Copies a part of the offscreen drawing to the window.
void CopyToWindow(const Session *session, const RECT &part);

} // namespace tessarine
