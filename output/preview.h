// What a run tells its preview window.
#pragma once

#include "frame/session.h"

namespace tessarine {

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void SetMenuState(Session *session);     // enables the commands that make sense now
void PaintPreview(Session *session);     // status strip and page
void PaintStatusStrip(Session *session);
void PlaceScrollBars(Session *session);  // at the start of a preview

} // namespace tessarine
