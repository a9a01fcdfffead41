#include "frame/files.h"

#include "frame/owned.h"

namespace tessarine {

namespace {

constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE OpenStanding(const char *path, DWORD access) {
    return CreateFileA(path, access, SHARE_ALL, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

} // namespace

bool FileStands(const char *path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

int64_t FileLength(const char *path) {
    const OwnedFile file(OpenStanding(path, GENERIC_READ));
    LARGE_INTEGER length;
    return file && GetFileSizeEx(file.Get(), &length) ? length.QuadPart : -1;
}

bool SeekTo(HANDLE file, int64_t offset) {
    LARGE_INTEGER place;
    place.QuadPart = offset;
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN);
}

// Both stay open for the comparison: the number of a closed file may be given out again.
bool SameFile(const char *path, const char *other) {
    const OwnedFile first(OpenStanding(path, 0));
    const OwnedFile second(OpenStanding(other, 0));
    BY_HANDLE_FILE_INFORMATION one{};
    BY_HANDLE_FILE_INFORMATION two{};
    return first && second && GetFileInformationByHandle(first.Get(), &one) &&
           GetFileInformationByHandle(second.Get(), &two) &&
           one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
           one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
}

} // namespace tessarine
