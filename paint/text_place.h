// Where text stands in its item's rectangle, and how it looks.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

constexpr int TEXT_INSET = 10; // form units that text keeps from the left and right edges

// Where text of a width or height begins in an item's rectangle, by the item's flags.
int TextLeft(const ItemRecord &item, const RECT &place, int width);
int TextTop(const ItemRecord &item, const RECT &place, int height);
// The row's font, the colour and a transparent background for text.
void SelectTextStyle(HDC device, const FontEntry &font, COLORREF color);

} // namespace tessarine
