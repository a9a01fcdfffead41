#include "paint/strokes.h"

namespace tessarine {

StrokePen::StrokePen(HDC device, HPEN made, HPEN next) : device_(device), made_(made), next_(next) {
    if (made_) SelectObject(device_, made_);
}

StrokePen::~StrokePen() {
    if (!made_) return;
    SelectObject(device_, next_);
    DeleteObject(made_);
}

void DrawStroke(HDC device, POINT start, POINT end) {
    MoveToEx(device, start.x, start.y, nullptr);
    LineTo(device, end.x, end.y);
}

void DrawFrame(HDC device, const RECT &place) {
    MoveToEx(device, place.left, place.top, nullptr);
    LineTo(device, place.right, place.top);
    LineTo(device, place.right, place.bottom);
    LineTo(device, place.left, place.bottom);
    LineTo(device, place.left, place.top);
}

} // namespace tessarine
