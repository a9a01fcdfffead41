// Blocks of a form file, moved through a small fixed buffer.
#pragma once

#include <cstddef>

#include "state/session.h"

namespace tessarine {

// Both stop at the first system call that fails or falls short; false then.
bool ReadBlock(HANDLE file, void *memory, size_t size);
bool WriteBlock(HANDLE file, const void *memory, size_t size);

} // namespace tessarine
