// What everything is drawn on and by.
#pragma once

#include <cstdint>

#include "state/windows.h"

namespace tessarine {

struct DrawingState {
    union {
        HDC ScreenDC;     // the window's context
        HDC OutputDevice; // the same slot in a run to the printer: the printer's context
    };
    int32_t LogPixelsX; // pixels per inch of the device being drawn on
    int32_t LogPixelsY;
};

struct PaletteState {
    COLORREF ForeColor;
    COLORREF BackColor;
    COLORREF GreyColor;
    COLORREF GroupColor;
    COLORREF TealColor;
};

} // namespace tessarine
