// Backgrounds, outlines, lines and pictures on the page.
#pragma once

#include "frame/session.h"

namespace tessarine {

// Null for a brush that can't be made.
HBRUSH MakeBackgroundBrush(const RepLogbrush &background);
void PaintBackground(HDC device, const ItemRecord &item, const RECT &rectangle);
// The item's outline in its own pen; of the rectangle only the top is read.
void PrintOutline(Session *session, HDC device, int row, const RECT &rectangle);
void PaintOutline(Session *session, HDC device, const RECT &rectangle, int sides, int row);
void PrintLine(Session *session, HDC device, int row);
void PrintPicture(Session *session, HDC device, int row);

} // namespace tessarine
