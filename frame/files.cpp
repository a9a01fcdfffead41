#include "frame/files.h"

#include "frame/owned.h"

namespace tessarine {

namespace {

constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

constexpr DWORD CHANGE = GENERIC_READ | GENERIC_WRITE;

HANDLE Open(const char *path, DWORD access, DWORD share, DWORD disposition,
            DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
    return CreateFileA(path, access, share, nullptr, disposition, attributes, nullptr);
}

} // namespace

HANDLE OpenToRead(const char *path) { return Open(path, GENERIC_READ, SHARE_ALL, OPEN_EXISTING); }

HANDLE OpenShared(const char *path, DWORD access, DWORD disposition) {
    return Open(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, disposition);
}

HANDLE OpenToKeep(const char *path) { return Open(path, CHANGE, FILE_SHARE_READ, OPEN_EXISTING); }

HANDLE MakeNew(const char *path, DWORD attributes) {
    return Open(path, CHANGE, 0, CREATE_NEW, attributes);
}

bool FileStands(const char *path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

int64_t FileLength(const char *path) {
    const OwnedFile file(OpenToRead(path));
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
    const OwnedFile first(Open(path, 0, SHARE_ALL, OPEN_EXISTING));
    const OwnedFile second(Open(other, 0, SHARE_ALL, OPEN_EXISTING));
    BY_HANDLE_FILE_INFORMATION one{};
    BY_HANDLE_FILE_INFORMATION two{};
    return first && second && GetFileInformationByHandle(first.Get(), &one) &&
           GetFileInformationByHandle(second.Get(), &two) &&
           one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
           one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
}

} // namespace tessarine
