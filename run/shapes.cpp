#include "run/shapes.h"

#include "form/bitmaps.h"
#include "form/pictures.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "run/items.h"

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

// The pen of a shape, in force for as long as it stands; the black pen follows it.
class ShapePen {
public:
    ShapePen(HDC device, int style, int width, COLORREF color)
        : device_(device), pen_(CreatePen(style, width, color)) {
        if (pen_) SelectObject(device_, pen_);
    }
    ShapePen(const ShapePen &) = delete;
    ShapePen &operator=(const ShapePen &) = delete;
    ~ShapePen() {
        if (!pen_) return;
        SelectObject(device_, GetStockObject(BLACK_PEN));
        DeleteObject(pen_);
    }
    explicit operator bool() const { return pen_ != nullptr; }

private:
    HDC device_;
    HPEN pen_;
};

// The far end of a back diagonal stays where it is when text above pushes the item down.
Segment LineOf(const Session *session, const ItemRecord &item) {
    const RECT place = ItemRectangle(session, item);
    const LONG middle_x = place.left + item.width / 2;
    const LONG middle_y = place.top + item.height / 2;
    switch (item.LineAngle) {
    case 0: return {{place.left, middle_y}, {place.right, middle_y}};
    case 1: return {{middle_x, place.top}, {middle_x, place.bottom}};
    case 2: return {{place.left, place.top}, {place.right, place.bottom}};
    default: return {{place.left, place.bottom}, {place.right, item.y + session->run.CurrentY}};
    }
}

} // namespace

// In the styles of patterns the hatch would be taken for a handle or a pointer, which no form
// holds.
HBRUSH MakeBackgroundBrush(const RepLogbrush &background) {
    LOGBRUSH brush{};
    ReadRepLogbrush(&background, &brush);
    return brush.lbStyle <= BS_HATCHED ? CreateBrushIndirect(&brush) : nullptr;
}

void PaintBackground(HDC device, const ItemRecord &item, const RECT &rectangle) {
    if (!(item.ItemFlags & FLAG_BACKGROUND)) return;
    const OwnedDrawingObject made(MakeBackgroundBrush(item.Background));
    if (made) FillRect(device, &rectangle, static_cast<HBRUSH>(made.Get()));
}

void PaintOutline(Session *session, HDC device, const RECT &rectangle, int sides, int row) {
    const ItemRecord &item = session->form.Items[row];
    const LONG left = item.x + session->run.CurrentX;
    const LONG right = left + item.width;
    const LONG top = rectangle.top;
    const LONG bottom = top + item.height;
    if (sides & SIDE_LEFT) DrawSegment(device, {{left, bottom}, {left, top}});
    if (sides & SIDE_TOP) DrawSegment(device, {{left, top}, {right, top}});
    if (sides & SIDE_RIGHT) DrawSegment(device, {{right, top}, {right, bottom}});
    if (sides & SIDE_BOTTOM) DrawSegment(device, {{right, bottom}, {left, bottom}});
}

void PrintOutline(Session *session, HDC device, int row, const RECT &rectangle) {
    const ItemRecord &item = session->form.Items[row];
    if (!item.OutlineSides) return;
    const ShapePen pen(device, item.OutlineStyle, item.OutlineWidth, item.OutlineColor);
    if (pen) PaintOutline(session, device, rectangle, item.OutlineSides, row);
}

void PrintLine(Session *session, HDC device, int row) {
    const ItemRecord &item = session->form.Items[row];
    {
        const ShapePen pen(device, item.LineStyle, item.LineWidth, item.LineColor);
        if (pen) DrawSegment(device, LineOf(session, item));
    }
    RaiseRowBottom(session, item);
}

void PrintPicture(Session *session, HDC device, int row) {
    const ItemRecord &item = session->form.Items[row];
    const FontEntry &picture = session->form.Fonts[item.FontIndex];
    const RECT place = ItemRectangle(session, item);
    const void *bits = LockHandle(picture.BitsBlock);
    const auto *info = static_cast<const BITMAPINFO *>(LockHandle(picture.InfoBlock));
    if (bits && info)
        StretchDIBits(device, place.left, place.top, item.width, item.height, 0, 0,
                      info->bmiHeader.biWidth, info->bmiHeader.biHeight, bits,
                      FullBitmapInfo(*info).Get(), DIB_RGB_COLORS, SRCCOPY);
    if (bits) UnlockHandle(picture.BitsBlock);
    if (info) UnlockHandle(picture.InfoBlock);
    RaiseRowBottom(session, item);
}

} // namespace tessarine
