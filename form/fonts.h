// Fonts of a form: creation, measuring, and the table's rows.
#pragma once

#include "state/session.h"

namespace tessarine {

int FindFontRow(Session *session); // a free row or -1 after a message
bool SameFont(const LOGFONTA &a, const LOGFONTA &b);
// Creates and measures a row's font on the device; normalise rounds its size to whole points.
int MakeFont(Session *session, HDC device, int row, bool normalise); // 1 or 0
int SetDefaultFont(Session *session, HDC device, int row, const char *face, int points);
void ReleaseFontRow(Session *session, int row); // deletes the handles and clears the row
void ClearFontRow(Session *session, int row);   // clears without deleting
int CreateDefaultBoldFont(Session *session);    // the row, 0 after a message
int FrFonts(Session *session, const LOGFONTA *font);
bool ReadPortableFont(const PortableFont &packed, LOGFONTA *font);
bool WritePortableFont(const LOGFONTA &font, PortableFont *packed); // false: doesn't fit 16 bits

} // namespace tessarine
