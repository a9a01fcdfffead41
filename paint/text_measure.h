// Measures of text in form units by the metrics of a device.
#pragma once

#include "state/measures_state.h"
#include "state/windows.h"

namespace tessarine {

// A font on a measuring context, and what is known of it there.
struct MeasuredFont {
    HDC device;
    int pixels_x; // per inch of the context
    HFONT font;   // null: the system's
    TextMeasures *known;
};

// The size of a text. With the height alone wanted, the width may be 0.
SIZE TextExtent(const MeasuredFont &font, const char *text, bool height_alone);
// Gives a measuring context, or null, its stock font back.
void EndMeasuring(HDC device);

} // namespace tessarine
