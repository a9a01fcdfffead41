// Pictures of a form, and packed brushes.
#pragma once

#include "frame/session.h"

namespace tessarine {

int StoreBitmap(Session *session, HBITMAP bitmap);                // the row or -1 after a message
int RestoreBitmap(Session *session, HDC device, int row);         // 1 or 0 after a message
int ReadRepLogbrush(const RepLogbrush *packed, LOGBRUSH *brush);  // 1
int WriteRepLogbrush(const LOGBRUSH *brush, RepLogbrush *packed); // 0: doesn't fit 16 bits

} // namespace tessarine
