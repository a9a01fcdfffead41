#include "designer/item_paint.h"

#include <algorithm>
#include <cstring>

#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/section_bar.h"
#include "form/label_measure.h"
#include "format/postnet.h"
#include "frame/owned.h"
#include "paint/shapes.h"
#include "paint/strokes.h"
#include "paint/text_place.h"

namespace tessarine {

namespace {

constexpr int WRAPPED_HEIGHT = 50; // form units: a wrapping field's first line is centred in these
constexpr int POSTNET_LIMIT = 300;

bool IsOnView(const ViewState &view, const ItemRecord &item) {
    return item.x <= view.OriginX + view.ViewWidth && item.x + item.width >= view.OriginX &&
           item.y <= view.OriginY + view.ViewHeight && item.y + item.height >= view.OriginY;
}

bool Within(int value, int count) { return value >= 0 && value < count; }

// A host may have put any number into an item.
const FontEntry &FontOf(const Session *session, const ItemRecord &item) {
    return session->form.Fonts[Within(item.FontIndex, MAX_FONTS) ? item.FontIndex : 0];
}

// A row that holds a picture leaves the font as it is. Neighbours mostly share a font, and to
// select it again costs more than half of drawing a text.
void TakeStyle(HDC device, const FontEntry &row, COLORREF color) {
    const HGDIOBJ font = row.Font ? row.Font : GetStockObject(SYSTEM_FONT);
    if (!row.IsPicture && GetCurrentObject(device, OBJ_FONT) != font) SelectObject(device, font);
    SetTextColor(device, color);
    SetBkMode(device, TRANSPARENT);
}

void DrawFrameIn(HDC device, HPEN pen, const RECT &place, HPEN next) {
    SelectObject(device, pen);
    DrawFrame(device, place);
    SelectObject(device, next);
}

// ---- labels ----

UINT AcrossOf(const ItemRecord &item) {
    if (item.ItemFlags & FLAG_LEFT) return DT_LEFT;
    return item.ItemFlags & FLAG_RIGHT ? DT_RIGHT : DT_CENTER;
}

RECT RoomOf(const ItemRecord &label) {
    RECT room = RectOf(label);
    if (label.ItemFlags & FLAG_LEFT)
        room.left += TEXT_INSET;
    else if (label.ItemFlags & FLAG_RIGHT)
        room.right -= TEXT_INSET;
    return room;
}

int Lowered(const ItemRecord &label, int height) {
    if (label.ItemFlags & FLAG_MIDDLE) return (label.height - height) / 2;
    return label.ItemFlags & FLAG_BOTTOM ? label.height - height : 0;
}

// The clip region is in device units.
void ClipTo(HDC device, RECT place) {
    LPtoDP(device, reinterpret_cast<POINT *>(&place), 2);
    const OwnedDrawingObject region(CreateRectRgnIndirect(&place));
    if (region) SelectClipRgn(device, static_cast<HRGN>(region.Get()));
}

// All clipping ends with a label's, so that items behind it may reach over the canvas's edge.
void PaintLabel(Session *session, HDC device, const ItemRecord &label) {
    const UINT format = DT_NOPREFIX | DT_EXTERNALLEADING | AcrossOf(label);
    RECT room = RoomOf(label);
    TakeStyle(device, FontOf(session, label), label.TextColor);
    RECT measured = room;
    DrawTextA(device, label.LabelText, -1, &measured, format | DT_CALCRECT);
    const int height = measured.bottom - measured.top;
    ClipTo(device, room);
    room.top += Lowered(label, height);
    room.bottom = room.top + height;
    DrawTextA(device, label.LabelText, -1, &room, format);
    SelectClipRgn(device, nullptr);
}

// ---- fields ----

bool Wraps(const FieldRecord &field) {
    return field.ValueType == TYPE_TEXT && (field.FieldFlags & (FIELD_WRAP | FIELD_WORD_WRAP));
}

bool IsZipCode(const char *sample) {
    char copy[MAX_LABEL_TEXT + 1];
    std::strcpy(copy, sample);
    return PostnetText(copy, static_cast<int>(std::strlen(copy)), POSTNET_LIMIT);
}

// What isn't a zip code shows as plain text instead of bars.
const FontEntry &ShownFont(const Session *session, const ItemRecord &item,
                           const FieldRecord &field) {
    const bool plain = (field.FieldFlags & FIELD_POSTNET) && !IsZipCode(item.LabelText);
    return plain ? session->form.Fonts[0] : FontOf(session, item);
}

int FirstLine(const Session *session, const ItemRecord &item, bool wraps, int height) {
    if (!wraps) return TextTop(item, RectOf(item), height);
    return item.y + (WRAPPED_HEIGHT - session->device.FontHeight) / 2 - 1;
}

// A wrapping field suggests several lines, none of which stands half outside.
void PaintSample(const Session *session, HDC device, const ItemRecord &item, bool wraps) {
    const FontEntry &measure = FontOf(session, item);
    const RECT place = RectOf(item);
    const int height = static_cast<int>(measure.Height);
    const int x = TextLeft(item, place, GetLabelLen(measure, item.LabelText));
    const auto length = static_cast<UINT>(std::strlen(item.LabelText));
    int y = FirstLine(session, item, wraps, height);
    do {
        ExtTextOutA(device, x, y, ETO_CLIPPED, &place, item.LabelText, length, nullptr);
        y += height;
    } while (wraps && height > 0 && y + height < place.bottom);
}

void PaintField(Session *session, HDC device, const ItemRecord &item) {
    if (!Within(item.FieldIndex, session->form.FieldCount)) return;
    const FieldRecord &field = session->form.Fields[item.FieldIndex];
    if (field.ValueType == TYPE_PICTURE || !*item.LabelText) return;
    TakeStyle(device, ShownFont(session, item, field), item.TextColor);
    PaintSample(session, device, item, Wraps(field));
}

// ---- shapes ----

void PaintLineItem(Session *session, HDC device, const ItemRecord &line) {
    PaintLine(device, line, RectOf(line), line.y, session->device.SolidPen);
}

void PaintPicture(Session *session, HDC device, const ItemRecord &item) {
    const FontEntry &picture = FontOf(session, item);
    const OwnedContext source(CreateCompatibleDC(nullptr)); // of the screen, as the bitmap is
    if (!source || !picture.Bitmap) return;
    const HGDIOBJ before = SelectObject(source.Get(), picture.Bitmap);
    if (!before) return;
    StretchBlt(device, item.x, item.y, item.width, item.height, source.Get(), 0, 0,
               static_cast<int>(picture.PixelWidth), static_cast<int>(picture.PixelHeight),
               SRCCOPY);
    SelectObject(source.Get(), before);
}

struct ContentRow {
    int type;
    void (*paint)(Session *session, HDC device, const ItemRecord &item);
};

constexpr ContentRow content_rows[] = {
    {ITEM_LABEL, PaintLabel},     {ITEM_FIELD, PaintField},   {ITEM_BAR, PaintSectionBar},
    {ITEM_PICTURE, PaintPicture}, {ITEM_LINE, PaintLineItem},
};

void PaintContent(Session *session, HDC device, const ItemRecord &item) {
    for (const ContentRow &row : content_rows)
        if (row.type == item.ItemType) row.paint(session, device, item);
}

bool HasNothing(const ItemRecord &item) {
    return item.ItemType == ITEM_BAR && (item.width <= 0 || item.height <= 0);
}

} // namespace

void PaintItem(Session *session, HDC device, int number) {
    const ItemRecord &item = session->form.Items[number];
    if (!IsOnView(session->view, item) || HasNothing(item)) return;
    const RECT place = RectOf(item);
    const DeviceState &resources = session->device;
    if (item.ItemType == ITEM_GROUP) {
        if (number == session->form.SelectedItem)
            DrawFrameIn(device, resources.GroupPen, place, resources.SolidPen);
        return;
    }
    PaintBackground(device, item, place);
    PaintOutline(device, item, place, resources.SolidPen);
    PaintContent(session, device, item);
    if (IsGroupMember(session, number))
        DrawFrameIn(device, resources.DotPen, place, resources.SolidPen);
}

} // namespace tessarine
