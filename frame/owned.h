// Small owners of system objects, for handles that are held across a call that can fail.
#pragma once

#include "state/windows.h"

namespace tessarine {

template <typename Handle, auto Release> class Owned {
public:
    explicit Owned(Handle handle = {}) : handle_(handle) {}
    Owned(const Owned &) = delete;
    Owned &operator=(const Owned &) = delete;
    ~Owned() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle{}; }
    Handle Leave() { // gives the handle away
        Handle handle = handle_;
        handle_ = {};
        return handle;
    }
    void Reset(Handle handle = {}) {
        if (handle_ != Handle{}) Release(handle_);
        handle_ = handle;
    }

private:
    Handle handle_;
};

inline void CloseFileHandle(HANDLE file) {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}
inline void DeleteContext(HDC device) { DeleteDC(device); }
inline void DeleteDrawingObject(HGDIOBJ object) { DeleteObject(object); }
inline void CloseOpenPrinter(HANDLE printer) { ClosePrinter(printer); }

// A file handle, for which INVALID_HANDLE_VALUE is the state of owning nothing.
class OwnedFile {
public:
    explicit OwnedFile(HANDLE file = INVALID_HANDLE_VALUE) : file_(file) {}
    OwnedFile(const OwnedFile &) = delete;
    OwnedFile &operator=(const OwnedFile &) = delete;
    ~OwnedFile() { CloseFileHandle(file_); }

    HANDLE Get() const { return file_; }
    explicit operator bool() const { return file_ != INVALID_HANDLE_VALUE; }
    HANDLE Leave() { // gives the handle away
        const HANDLE file = file_;
        file_ = INVALID_HANDLE_VALUE;
        return file;
    }

private:
    HANDLE file_;
};

using OwnedContext = Owned<HDC, DeleteContext>;
using OwnedDrawingObject = Owned<HGDIOBJ, DeleteDrawingObject>;
using OwnedPrinter = Owned<HANDLE, CloseOpenPrinter>;

} // namespace tessarine
