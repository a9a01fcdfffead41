// Measures of text by the width table and line height of a font row, in form units.
#pragma once

#include "frame/session.h"

namespace tessarine {

int GetLabelLen(const Session *session, const char *text, int font);       // the widest line
int GetLabelHeight(const Session *session, const char *text, int font);    // (line feeds + 1) lines
int TruncateText(const Session *session, char *text, int width, int font); // always 1

} // namespace tessarine
