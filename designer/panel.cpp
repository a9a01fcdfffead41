#include "designer/panel.h"

#include "frame/text.h"
#include "paint/strokes.h"

namespace tessarine {

namespace {

constexpr LOGFONTA ruler_font = {
    -32,
    0,
    0,
    0,
    FW_NORMAL,
    FALSE,
    FALSE,
    FALSE,
    ANSI_CHARSET,
    OUT_STROKE_PRECIS,
    CLIP_STROKE_PRECIS,
    DRAFT_QUALITY,
    DEFAULT_PITCH,
    "Arial",
};

HPEN ThinPen(COLORREF color) { return CreatePen(PS_SOLID, 1, color); }

void PaintFace(HDC device, const RECT &place, HPEN next) {
    const StrokePen pen(device, ThinPen(RGB(0, 0, 0)), next);
    const HGDIOBJ before = SelectObject(device, GetSysColorBrush(COLOR_BTNFACE));
    Rectangle(device, place.left, place.top, place.right, place.bottom);
    SelectObject(device, before);
}

// Two sides of the bevel that meet in a corner, from the bottom left.
void PaintBevel(HDC device, const RECT &bevel, POINT corner, COLORREF color, HPEN next) {
    const StrokePen pen(device, ThinPen(color), next);
    if (!pen) return;
    DrawStroke(device, {bevel.left, bevel.bottom}, corner);
    LineTo(device, bevel.right, bevel.top);
}

} // namespace

void RaisedPanel(HDC device, const RECT &place, HPEN next) {
    PaintFace(device, place, next);
    const RECT bevel{place.left + 2, place.top + 2, place.right - 4, place.bottom - 4};
    PaintBevel(device, bevel, {bevel.left, bevel.top}, RGB(255, 255, 255), next);
    PaintBevel(device, bevel, {bevel.right, bevel.bottom}, GetSysColor(COLOR_BTNSHADOW), next);
}

RulerFont::RulerFont(HDC device)
    : device_(device), made_(CreateFontIndirectA(&ruler_font)),
      before_(made_ ? SelectObject(device, made_) : nullptr) {}

RulerFont::~RulerFont() {
    if (!made_) return;
    if (before_) SelectObject(device_, before_);
    if (!DeleteObject(made_)) DebugMessage("failed to delete font");
}

} // namespace tessarine
