#include "host/base/files.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include <windows.h>

#include "host/base/failure.h"
#include "host/base/part_file.h"

namespace {

// A file that is read doesn't hinder one that takes its place.
constexpr DWORD SHARED = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct File {
    HANDLE handle;
    ~File() {
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
};

// 0, or the system's error.
DWORD WriteNew(const std::string &path, const std::string &bytes) {
    const File file{CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr)};
    if (file.handle == INVALID_HANDLE_VALUE) return GetLastError();
    DWORD moved = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!WriteFile(file.handle, bytes.data(), size, &moved, nullptr)) return GetLastError();
    return moved == size ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

using Identity = std::tuple<DWORD, DWORD, DWORD>; // volume and index

std::optional<Identity> IdentityOf(const std::string &path) {
    const File file{CreateFileA(path.c_str(), 0, SHARED, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
    BY_HANDLE_FILE_INFORMATION about{};
    if (file.handle == INVALID_HANDLE_VALUE || !GetFileInformationByHandle(file.handle, &about))
        return std::nullopt;
    return Identity{about.dwVolumeSerialNumber, about.nFileIndexHigh, about.nFileIndexLow};
}

} // namespace

std::string SystemMessage(unsigned long error) {
    char text[300] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   text, sizeof text, nullptr);
    std::string message = text;
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r' ||
                                message.back() == '.' || message.back() == ' '))
        message.pop_back();
    return message;
}

std::string ReadFileBytes(const std::string &path) { return ReadFilePart(path, 0, SIZE_MAX); }

std::string ReadFilePart(const std::string &path, uint32_t offset, size_t count) {
    const File file{CreateFileA(path.c_str(), GENERIC_READ, SHARED, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr)};
    if (file.handle == INVALID_HANDLE_VALUE)
        throw Failure(path + ": can't be opened: " + SystemMessage(GetLastError()));
    LARGE_INTEGER size{};
    GetFileSizeEx(file.handle, &size);
    const uint64_t behind = static_cast<uint64_t>(size.QuadPart) - offset;
    const uint64_t wanted = size.QuadPart < offset ? 0 : std::min<uint64_t>(behind, count);
    if (wanted > 1 << 30) throw Failure(path + ": is too large to be read");
    std::string bytes(static_cast<size_t>(wanted), '\0');
    LARGE_INTEGER start{};
    start.QuadPart = offset;
    SetFilePointerEx(file.handle, start, nullptr, FILE_BEGIN);
    DWORD moved = 0;
    if (!ReadFile(file.handle, bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr) ||
        moved != bytes.size())
        throw Failure(path + ": can't be read: " + SystemMessage(GetLastError()));
    return bytes;
}

void KeepInput(const std::string &output, const std::string &input) {
    const auto written = IdentityOf(output);
    if (written && written == IdentityOf(input))
        throw Failure(output + ": is the same file as " + input +
                          ", which is read; name another to write",
                      EXIT_USAGE);
}

bool RemoveFile(const std::string &path) {
    if (DeleteFileA(path.c_str())) return true;
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return false;
    throw Failure(path + ": can't be removed: " + SystemMessage(error));
}

void WriteFileBytes(const std::string &path, const std::string &bytes) {
    const PartFile part(path);
    if (const DWORD error = WriteNew(part.Path(), bytes))
        throw Failure(path + ": can't be written: " + SystemMessage(error));
    part.PutInPlace();
}
