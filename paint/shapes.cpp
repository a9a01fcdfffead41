#include "paint/shapes.h"

#include "frame/colors.h"
#include "frame/owned.h"
#include "paint/strokes.h"

namespace tessarine {

namespace {

struct Segment {
    POINT start;
    POINT end;
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
    if (sides & SIDE_LEFT) DrawStroke(device, bottom_left, top_left);
    if (sides & SIDE_TOP) DrawStroke(device, top_left, top_right);
    if (sides & SIDE_RIGHT) DrawStroke(device, top_right, bottom_right);
    if (sides & SIDE_BOTTOM) DrawStroke(device, bottom_right, bottom_left);
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
    const StrokePen pen(device, made, next);
    if (pen) DrawSides(device, place, item.OutlineSides);
}

void PaintLine(HDC device, const ItemRecord &item, const RECT &place, LONG far_top, HPEN next) {
    const StrokePen pen(device, CreatePen(item.LineStyle, item.LineWidth, item.LineColor), next);
    if (!pen) return;
    const Segment line = LineOf(item, place, far_top);
    DrawStroke(device, line.start, line.end);
}

} // namespace tessarine
