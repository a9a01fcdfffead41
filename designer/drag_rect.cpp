#include "designer/drag_rect.h"

#include <algorithm>
#include <utility>

#include "designer/handles.h"

namespace tessarine {

namespace {

RECT EdgesAt(RECT rectangle, HandleSides sides, int x, int y) {
    if (sides.across < 0) rectangle.left = x;
    if (sides.across > 0) rectangle.right = x;
    if (sides.down < 0) rectangle.top = y;
    if (sides.down > 0) rectangle.bottom = y;
    return rectangle;
}

// An edge that has passed the opposite one goes back to it: the one on the side that is dragged.
void StopAtOther(LONG *near_edge, LONG *far_edge, int side) {
    if (*near_edge <= *far_edge) return;
    if (side < 0)
        *near_edge = *far_edge;
    else
        *far_edge = *near_edge;
}

} // namespace

RECT MovedTo(const RECT &rectangle, int x, int y) {
    RECT moved = rectangle;
    const LONG width = rectangle.right - rectangle.left;
    const LONG height = rectangle.bottom - rectangle.top;
    OffsetRect(&moved, x - width / 2 - rectangle.left, y - height / 2 - rectangle.top);
    return moved;
}

RECT HeldMoving(RECT rectangle, const RECT &limits, bool free) {
    OffsetRect(&rectangle, std::max(limits.left - rectangle.left, 0L),
               std::max(limits.top - rectangle.top, 0L));
    if (free) return rectangle;
    OffsetRect(&rectangle, std::min(limits.right - rectangle.right, 0L),
               std::min(limits.bottom - rectangle.bottom, 0L));
    return rectangle;
}

RECT SizedBy(const RECT &rectangle, int *handle, int x, int y) {
    HandleSides sides = SidesOf(*handle);
    RECT sized = EdgesAt(rectangle, sides, x, y);
    if (sized.left > sized.right) {
        std::swap(sized.left, sized.right);
        sides.across = -sides.across;
    }
    if (sized.top > sized.bottom) {
        std::swap(sized.top, sized.bottom);
        sides.down = -sides.down;
    }
    *handle = HandleOf(sides);
    return sized;
}

RECT HeldSizing(RECT rectangle, const RECT &limits, bool free) {
    rectangle.left = std::max(rectangle.left, limits.left);
    rectangle.top = std::max(rectangle.top, limits.top);
    if (free) return rectangle;
    rectangle.right = std::min(rectangle.right, limits.right);
    rectangle.bottom = std::min(rectangle.bottom, limits.bottom);
    return rectangle;
}

RECT SizedBar(const RECT &rectangle, int handle, int x, int y, int most_height) {
    const HandleSides sides = SidesOf(handle);
    RECT sized = EdgesAt(rectangle, sides, x, y);
    if (sized.bottom - sized.top > most_height) sized.bottom = sized.top + most_height - 1;
    StopAtOther(&sized.left, &sized.right, sides.across);
    StopAtOther(&sized.top, &sized.bottom, sides.down);
    return sized;
}

} // namespace tessarine
