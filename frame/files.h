// Files by their paths.
#pragma once

#include <cstdint>

#include "state/windows.h"

namespace tessarine {

bool FileStands(const char *path);
int64_t FileLength(const char *path); // -1 when it can't be opened
bool SeekTo(HANDLE file, int64_t offset);
// Whether two paths lead to one file, however they are spelled.
bool SameFile(const char *path, const char *other);

} // namespace tessarine
