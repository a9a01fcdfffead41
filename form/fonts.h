// Fonts of a form: creation, measuring, and how a file holds them.
#pragma once

#include "state/session.h"

namespace tessarine {

bool SameFont(const LOGFONTA &a, const LOGFONTA &b);
// Creates and measures a row's font on the device; normalise rounds its size to whole points.
int MakeFont(Session *session, HDC device, int row, bool normalise); // 1 or 0
int SetDefaultFont(Session *session, HDC device, int row, const char *face, int points);
void ClearFontRow(Session *session, int row); // clears without deleting
bool ReadPortableFont(const PortableFont &packed, LOGFONTA *font);
bool WritePortableFont(const LOGFONTA &font, PortableFont *packed); // false: doesn't fit 16 bits

} // namespace tessarine
