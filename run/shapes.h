// Backgrounds, outlines, lines and pictures on the page.
#pragma once

#include "frame/session.h"

namespace tessarine {

void PaintBackground(Session *session, HDC device, int row);
void PrintOutline(Session *session, HDC device, int row);
void PaintOutline(Session *session, HDC device, const RECT &rectangle, int sides, int row);
void PrintLine(Session *session, HDC device, int row);
void PrintPicture(Session *session, HDC device, int row);

} // namespace tessarine
