// The rows of the font table in a form file.
#pragma once

#include "state/session.h"

namespace tessarine {

// False when a row is missing: a picture that isn't what its header says, or all from the first
// that is cut off. A picture that finds no memory is fatal with code 3.
bool ReadFontRows(Session *session, HANDLE file);

enum class FontWrite { Done, Silent, NoMemory };
FontWrite WriteFontRows(Session *session, HANDLE file);

} // namespace tessarine
