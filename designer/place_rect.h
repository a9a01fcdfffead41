// The grid, and the section that a rectangle belongs to.
#pragma once

#include "state/session.h"

namespace tessarine {

int SectionAt(Session *session, int y); // row of a bar; fatal with code 12 in a form without bars
int SnapX(Session *session, int x);
int SnapY(Session *session, int y, int bar);
// Moves the corner to the grid of the bar's row (-1: that of the rectangle's top).
void SnapRect(Session *session, RECT *rectangle, int bar);
// Orders the edges of FocusRect and holds it in the section of its top edge, snapped; a group and a
// rubber band stay where they are. The section's row.
int PlaceRect(Session *session);

} // namespace tessarine
