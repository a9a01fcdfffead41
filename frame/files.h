// Files by their paths.
#pragma once

#include <cstdint>

#include "state/windows.h"

namespace tessarine {

// Each gives INVALID_HANDLE_VALUE when it can't. OpenToRead lets all others work on the file too;
// OpenShared lets them read and write it, and makes it if the disposition says so; OpenToKeep lets
// them read it alone; MakeNew is refused where a file stands, and lets nobody else in.
HANDLE OpenToRead(const char *path);
HANDLE OpenShared(const char *path, DWORD access, DWORD disposition);
HANDLE OpenToKeep(const char *path);
HANDLE MakeNew(const char *path, DWORD attributes = FILE_ATTRIBUTE_NORMAL);

bool FileStands(const char *path);
int64_t FileLength(const char *path); // -1 when it can't be opened
bool SeekTo(HANDLE file, int64_t offset);
// Whether two paths lead to one file, however they are spelled.
bool SameFile(const char *path, const char *other);

} // namespace tessarine
