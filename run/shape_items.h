// Lines, pictures and outlines of the page under construction.
#pragma once

#include "state/session.h"

namespace tessarine {

// The item's outline on the rectangle.
void PrintOutline(HDC device, const ItemRecord &item, const RECT &place);
void PrintLine(Session *session, HDC device, int row);
void PrintPicture(Session *session, HDC device, int row);

} // namespace tessarine
