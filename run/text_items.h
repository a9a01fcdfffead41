// Labels and runs of text on the page.
#pragma once

#include "state/session.h"

namespace tessarine {

void PrintLabel(Session *session, HDC device, int row);
// Draws a run of text by the widths of the font row, clipped. Fatal with code 3.
void PrintText(Session *session, HDC device, int x, int y, const char *text, int length, int font,
               const RECT &clip);

} // namespace tessarine
