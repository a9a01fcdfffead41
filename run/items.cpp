#include "run/items.h"

#include <algorithm>

#include "paint/shapes.h"
#include "run/field_item.h"
#include "run/shape_items.h"
#include "run/text_items.h"

namespace tessarine {

namespace {

struct PainterRow {
    int item_type;
    void (*paint)(Session *session, HDC device, int row);
};

constexpr PainterRow painters[] = {
    {ITEM_LABEL, PrintLabel},
    {ITEM_FIELD, PrintField},
    {ITEM_LINE, PrintLine},
    {ITEM_PICTURE, PrintPicture},
};

} // namespace

RECT ItemRectangle(const Session *session, const ItemRecord &item) {
    const LONG left = item.x + session->run.CurrentX;
    const LONG top = item.y + session->run.CurrentY + item.RunOffset;
    return RECT{left, top, left + item.width, top + item.height};
}

void RaiseRowBottom(Session *session, const ItemRecord &item) {
    const int bottom = item.y + item.height + item.RunOffset + session->run.CurrentY;
    session->run.RowBottom = std::max(session->run.RowBottom, bottom);
}

void PrintItem(Session *session, HDC device, int row) {
    const ItemRecord &item = session->form.Items[row];
    const RECT rectangle = ItemRectangle(session, item);
    PaintBackground(device, item, rectangle);
    PrintOutline(device, item, rectangle);
    for (const PainterRow &painter : painters)
        if (painter.item_type == item.ItemType) painter.paint(session, device, row);
}

} // namespace tessarine
