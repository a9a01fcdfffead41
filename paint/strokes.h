// Straight strokes, and the pens that make them.
#pragma once

#include "state/windows.h"

namespace tessarine {

// A pen of a shape's own, in force for as long as it stands; the next pen follows it. It tests
// false when the pen couldn't be made.
class StrokePen {
public:
    StrokePen(HDC device, HPEN made, HPEN next);
    StrokePen(const StrokePen &) = delete;
    StrokePen &operator=(const StrokePen &) = delete;
    ~StrokePen();
    explicit operator bool() const { return made_ != nullptr; }

private:
    HDC device_;
    HPEN made_;
    HPEN next_;
};

void DrawStroke(HDC device, POINT start, POINT end);
// The four edges of a rectangle in the pen in force, from the top left clockwise.
void DrawFrame(HDC device, const RECT &place);

} // namespace tessarine
