// Measures of text in form units by the widths of a font row.
#pragma once

#include "tessarine_records.h"

namespace tessarine {

int GetLabelLen(const FontEntry &font, const char *text);    // the widest line
int GetLabelHeight(const FontEntry &font, const char *text); // (line feeds + 1) lines
// Cuts the text, which may be null, to the width.
void TruncateText(const FontEntry &font, char *text, int width);

} // namespace tessarine
