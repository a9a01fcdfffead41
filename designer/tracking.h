// The pointer: hovering, armed, moving, sizing, banding, placing. No drag changes the form while
// it runs, only FocusRect.
#pragma once

#include "state/session.h"

namespace tessarine {

void MouseDown(Session *session, WPARAM wParam, LPARAM lParam);
void MouseMove(Session *session, WPARAM wParam, LPARAM lParam);
void MouseUp(Session *session, WPARAM wParam, LPARAM lParam); // left or middle button
void HoverCursor(Session *session, LPARAM lParam);
// Back to hovering, with the arrow.
void EndGesture(Session *session);
// True for a command that shows a new item's rectangle, which the next press puts in its place.
bool IsPlacement(int command);

} // namespace tessarine
