#include "host/data/files.h"

#include <algorithm>
#include <cstdint>

#include <windows.h>

#include "host/cli/failure.h"

namespace {

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

std::string ReadFileBytes(const std::string &path) { return ReadFileStart(path, SIZE_MAX); }

std::string ReadFileStart(const std::string &path, size_t count) {
    const File file{CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)};
    if (file.handle == INVALID_HANDLE_VALUE)
        throw Failure(path + ": can't be opened: " + SystemMessage(GetLastError()));
    LARGE_INTEGER size{};
    GetFileSizeEx(file.handle, &size);
    const uint64_t wanted = std::min<uint64_t>(static_cast<uint64_t>(size.QuadPart), count);
    if (wanted > 1 << 30) throw Failure(path + ": is too large to be read");
    std::string bytes(static_cast<size_t>(wanted), '\0');
    DWORD moved = 0;
    if (!ReadFile(file.handle, bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr) ||
        moved != bytes.size())
        throw Failure(path + ": can't be read: " + SystemMessage(GetLastError()));
    return bytes;
}

void PutInPlace(const std::string &from, const std::string &to) {
    if (MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED))
        return;
    const unsigned long error = GetLastError();
    DeleteFileA(from.c_str());
    throw Failure(to + ": can't be written: " + SystemMessage(error));
}

void WriteFileBytes(const std::string &path, const std::string &bytes) {
    const std::string beside = path + ".new";
    if (const DWORD error = WriteNew(beside, bytes)) {
        DeleteFileA(beside.c_str());
        throw Failure(path + ": can't be written: " + SystemMessage(error));
    }
    PutInPlace(beside, path);
}
