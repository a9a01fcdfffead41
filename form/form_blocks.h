// Blocks of a form file, moved through a small fixed buffer.
#pragma once

#include <cstddef>

#include "state/session.h"

namespace tessarine {

// Both stop at the first system call that fails or falls short; false then.
bool ReadBlock(HANDLE file, void *memory, size_t size);
bool WriteBlock(HANDLE file, const void *memory, size_t size);

// The rows of the font table. Reading gives false when a row is missing: a picture that isn't what
// its header says, or all from the first that is cut off. A picture that finds no memory is fatal
// with code 3.
bool ReadFontRows(Session *session, HANDLE file);

enum class FontWrite { Done, Silent, NoMemory };
FontWrite WriteFontRows(Session *session, HANDLE file);

} // namespace tessarine
