#include "paint/text_place.h"

namespace tessarine {

int TextLeft(const ItemRecord &item, const RECT &place, int width) {
    if (item.ItemFlags & FLAG_LEFT) return place.left + TEXT_INSET;
    if (item.ItemFlags & FLAG_RIGHT) return place.left + (item.width - width) - TEXT_INSET;
    return place.left + (item.width - width) / 2;
}

int TextTop(const ItemRecord &item, const RECT &place, int height) {
    if (item.ItemFlags & FLAG_TOP) return place.top;
    if (item.ItemFlags & FLAG_BOTTOM) return place.top + (item.height - height);
    return place.top + (item.height - height) / 2;
}

void SelectTextStyle(HDC device, const FontEntry &font, COLORREF color) {
    SelectObject(device, font.Font ? font.Font : GetStockObject(SYSTEM_FONT));
    SetTextColor(device, color);
    SetBkMode(device, TRANSPARENT);
}

} // namespace tessarine
