#include "run/shape_items.h"

#include "form/bitmaps.h"
#include "frame/memory.h"
#include "paint/shapes.h"
#include "run/items.h"

namespace tessarine {

namespace {

// What a page goes on with behind a shape.
HPEN BlackPen() { return static_cast<HPEN>(GetStockObject(BLACK_PEN)); }

} // namespace

void PrintOutline(HDC device, const ItemRecord &item, const RECT &place) {
    PaintOutline(device, item, place, BlackPen());
}

// The far end of a back diagonal stays where it is when text above pushes the item down.
void PrintLine(Session *session, HDC device, int row) {
    const ItemRecord &item = session->form.Items[row];
    const RECT place = ItemRectangle(session, item);
    PaintLine(device, item, place, place.top - item.RunOffset, BlackPen());
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
