// Where a dragged rectangle goes, by numbers alone.
#pragma once

#include "state/windows.h"

namespace tessarine {

// The rectangle around the pointer, its size unchanged.
RECT MovedTo(const RECT &rectangle, int x, int y);
// Held inside limits at left and top, and unless free at right and bottom, its size unchanged.
RECT HeldMoving(RECT rectangle, const RECT &limits, bool free);
// The edges of the handle follow the pointer; one that crosses the opposite edge goes on with the
// opposite handle.
RECT SizedBy(const RECT &rectangle, int *handle, int x, int y);
RECT HeldSizing(RECT rectangle, const RECT &limits, bool free);
// The same for a section bar: at most this height, and edges that can't cross.
RECT SizedBar(const RECT &rectangle, int handle, int x, int y, int most_height);

} // namespace tessarine
