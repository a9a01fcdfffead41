#include "host/base/part_file.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <windows.h>

#include "host/base/failure.h"
#include "host/base/files.h"

namespace {

constexpr const char *ENDING = ".part";
constexpr const char *LOCK_ENDING = ".lock";
constexpr int LONGEST_TRY = 100; // turns of 10 milliseconds

bool Stands(const std::string &path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

Failure Unwritable(const std::string &path, DWORD error) {
    return Failure(path + ": can't be written: " + SystemMessage(error));
}

std::string PartName(const std::string &place, DWORD number) {
    char own[12];
    std::snprintf(own, sizeof own, ".%08lx", number);
    return place + own + ENDING;
}

// One claims a name by making its lock.
HANDLE Claim(const std::string &part) {
    return CreateFileA((part + LOCK_ENDING).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                       CREATE_NEW, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

// Whether a name goes on behind its place as those of parts do.
bool IsPart(const std::string &name) {
    return name.size() > 1 && PartName("", std::strtoul(name.c_str() + 1, nullptr, 16)) == name;
}

// A part is renamed before its lock goes, so one without a lock has lost its program.
void Sweep(const std::string &place) {
    const std::string folder = place.substr(0, place.find_last_of("\\/:") + 1);
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA((place + ".????????" + ENDING).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::string part = folder + found.cFileName;
        if (IsPart(part.substr(place.size())) && !Stands(part + LOCK_ENDING))
            DeleteFileA(part.c_str());
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

} // namespace

PartFile::PartFile(std::string path) : place_(std::move(path)), lock_(INVALID_HANDLE_VALUE) {
    Sweep(place_);
    for (DWORD number = GetCurrentProcessId() ^ GetTickCount() << 8;; ++number) {
        path_ = PartName(place_, number);
        lock_ = Claim(path_);
        if (lock_ != INVALID_HANDLE_VALUE) return;
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_EXISTS) throw Unwritable(place_, error);
    }
}

PartFile::~PartFile() {
    DeleteFileA(path_.c_str());
    CloseHandle(lock_);
}

// Another that reads or replaces the place keeps it for a moment.
void PartFile::PutInPlace() const {
    for (int turn = 0;; ++turn) {
        if (MoveFileExA(path_.c_str(), place_.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
        const DWORD error = GetLastError();
        const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!held || turn == LONGEST_TRY) throw Unwritable(place_, error);
        Sleep(10);
    }
}
