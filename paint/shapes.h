// Backgrounds, outlines and lines of items, alike on a page and in the designer's window.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

// Null for a brush that can't be made.
HBRUSH MakeBackgroundBrush(const RepLogbrush &background);
void PaintBackground(HDC device, const ItemRecord &item, const RECT &place);
// The sides that the item has, on the rectangle and in its own pen; the next pen follows it.
void PaintOutline(HDC device, const ItemRecord &item, const RECT &place, HPEN next);
// A line item across its rectangle, pens as above. A back diagonal ends at far_top, which is the
// rectangle's top unless text above has pushed the item down.
void PaintLine(HDC device, const ItemRecord &item, const RECT &place, LONG far_top, HPEN next);

} // namespace tessarine
