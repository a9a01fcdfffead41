// What a session's window shows, of a page or of a form.
#pragma once

#include <cstdint>

#include "state/windows.h"

namespace tessarine {

struct ViewState {
    int32_t OriginX; // form units: top left of what is shown
    int32_t OriginY;
    int32_t ViewWidth; // form units: the area of the window below the band
    int32_t ViewHeight;
    int32_t RulerBandHeight; // form units: the band above that area, 0 in a report's window
    RECT ClipRect;           // pixels
    SIZE FixedBitmap;        // pixels of the offscreen bitmap; zero: those of the window
    HDC MemoryDC;            // offscreen
    HDC MemoryDC2;           // offscreen, for pictures
    HBITMAP OffscreenBitmap;
    HBITMAP OldBitmap;  // what MemoryDC held before OffscreenBitmap
    int32_t ScrollPosX; // 0 to 100
    int32_t ScrollPosY;
    uint32_t HorzScroll; // the window has that scroll bar
    uint32_t VertScroll;
    uint32_t PaintEnabled; // the session has a window of its own to paint
    uint32_t WindowGone;   // that window was destroyed by another's hand
};

} // namespace tessarine
