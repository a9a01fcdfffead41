// Pictures of a form.
#pragma once

#include "state/session.h"

namespace tessarine {

// The size of a picture in points, as far as a form file holds it.
uint32_t PointsOf(LONG pixels, int pixels_per_inch);
int StoreBitmap(Session *session, HBITMAP bitmap);        // the row or -1 after a message
int RestoreBitmap(Session *session, HDC device, int row); // 1 or 0 after a message

} // namespace tessarine
