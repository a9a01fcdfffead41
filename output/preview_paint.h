// What a preview shows.
#pragma once

#include "state/session.h"

namespace tessarine {

// The status strip and the page on view; nothing in a session without a window of its own.
void PaintPreview(Session *session);
void PaintStatusStrip(Session *session);

} // namespace tessarine
