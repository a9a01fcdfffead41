// Measures of text in form units: by the widths of a font row, and by a device's own metrics.
#pragma once

#include "frame/windows.h"
#include "paint/measures_state.h"
#include "tessarine_records.h"

namespace tessarine {

int GetLabelLen(const FontEntry &font, const char *text);    // the widest line
int GetLabelHeight(const FontEntry &font, const char *text); // (line feeds + 1) lines
// Cuts the text, which may be null, to the width.
void TruncateText(const FontEntry &font, char *text, int width);

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
