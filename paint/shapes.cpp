#include "paint/shapes.h"

#include "frame/colors.h"
#include "frame/owned.h"

namespace tessarine {

namespace {

struct Segment {
    POINT start;
    POINT end;
};

void DrawSegment(HDC device, const Segment &segment) {
    MoveToEx(device, segment.start.x, segment.start.y, nullptr);
    LineTo(device, segment.end.x, segment.end.y);
}

// The pen of a shape, in force for as long as it stands.
class ShapePen {
public:
    ShapePen(HDC device, HPEN made, HPEN next) : device_(device), made_(made), next_(next) {
        if (made_) SelectObject(device_, made_);
    }
    ShapePen(const ShapePen &) = delete;
    ShapePen &operator=(const ShapePen &) = delete;
    ~ShapePen() {
        if (!made_) return;
        SelectObject(device_, next_);
        DeleteObject(made_);
    }
    explicit operator bool() const { return made_ != nullptr; }

private:
    HDC device_;
    HPEN made_;
    HPEN next_;
};

Segment LineOf(const ItemRecord &item, const RECT &place, LONG far_top) {
    const LONG middle_x = place.left + item.width / 2;
    const LONG middle_y = place.top + item.height / 2;
    switch (item.LineAngle) {
    case 0: return {{place.left, middle_y}, {place.right, middle_y}};
    case 1: return {{middle_x, place.top}, {middle_x, place.bottom}};
    case 2: return {{place.left, place.top}, {place.right, place.bottom}};
    default: return {{place.left, place.bottom}, {place.right, far_top}};
    }
}

void DrawSides(HDC device, const RECT &place, int sides) {
    const POINT top_left{place.left, place.top};
    const POINT top_right{place.right, place.top};
    const POINT bottom_left{place.left, place.bottom};
    const POINT bottom_right{place.right, place.bottom};
    if (sides & SIDE_LEFT) DrawSegment(device, {bottom_left, top_left});
    if (sides & SIDE_TOP) DrawSegment(device, {top_left, top_right});
    if (sides & SIDE_RIGHT) DrawSegment(device, {top_right, bottom_right});
    if (sides & SIDE_BOTTOM) DrawSegment(device, {bottom_right, bottom_left});
}

} // namespace

// In the styles of patterns the hatch would be taken for a handle or a pointer, which no form
// holds.
HBRUSH MakeBackgroundBrush(const RepLogbrush &background) {
    LOGBRUSH brush{};
    ReadRepLogbrush(&background, &brush);
    return brush.lbStyle <= BS_HATCHED ? CreateBrushIndirect(&brush) : nullptr;
}

void PaintBackground(HDC device, const ItemRecord &item, const RECT &place) {
    if (!(item.ItemFlags & FLAG_BACKGROUND)) return;
    const OwnedDrawingObject made(MakeBackgroundBrush(item.Background));
    if (made) FillRect(device, &place, static_cast<HBRUSH>(made.Get()));
}

void PaintOutline(HDC device, const ItemRecord &item, const RECT &place, HPEN next) {
    if (!item.OutlineSides) return;
    const HPEN made = CreatePen(item.OutlineStyle, item.OutlineWidth, item.OutlineColor);
    const ShapePen pen(device, made, next);
    if (pen) DrawSides(device, place, item.OutlineSides);
}

void PaintLine(HDC device, const ItemRecord &item, const RECT &place, LONG far_top, HPEN next) {
    const ShapePen pen(device, CreatePen(item.LineStyle, item.LineWidth, item.LineColor), next);
    if (pen) DrawSegment(device, LineOf(item, place, far_top));
}

} // namespace tessarine
