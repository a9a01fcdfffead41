// What the designer's window shows of the form.
#pragma once

#include "state/session.h"

namespace tessarine {

POINT DeviceToForm(const Session *session, POINT pixel); // pixels of the client area
POINT FormToDevice(const Session *session, POINT place);
POINT PixelOfMessage(LPARAM lParam); // signed in both words
POINT PlaceOfMessage(const Session *session, LPARAM lParam);
int CanvasTop(const Session *session); // pixels; CanvasLeft is 0

void ClampOrigin(Session *session); // into the form, and applied
void SyncScrollBars(Session *session);
void MoveCursorTo(const Session *session, int x, int y); // the pointer, to a place of the form
// Brings the rectangle on view if it isn't; 1 when it scrolled. FocusRect stays what it was,
// whatever the repaint makes of it.
int EnsureVisible(Session *session, const RECT &rectangle);

} // namespace tessarine
