// Scroll bars that run from 0 to 100 and stand for a percentage of what there is to see.
#pragma once

#include "state/session.h"

namespace tessarine {

// Shows the bars that the session asks for, at 0.
void ShowScrollBars(Session *session);
// Moves a bar, SB_HORZ or SB_VERT, to the share that a place has of the extent: at most all of it,
// and none of an extent of 0.
void MoveScrollBar(Session *session, int bar, int64_t place, int64_t extent);
// The place in the extent that a thumb at 0 to 100 stands for.
int PlaceOfThumb(int position, int extent);

} // namespace tessarine
