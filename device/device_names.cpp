#include "device/device_names.h"

#include <algorithm>
#include <cstring>

#include "device/printer.h"
#include "form/modified.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

// A lock on a host's handle.
class LockedHandle {
public:
    explicit LockedHandle(HGLOBAL handle) : handle_(handle), memory_(LockHandle(handle)) {}
    LockedHandle(const LockedHandle &) = delete;
    LockedHandle &operator=(const LockedHandle &) = delete;
    ~LockedHandle() {
        if (memory_) UnlockHandle(handle_);
    }
    template <typename Record> Record *As() const { return static_cast<Record *>(memory_); }
    size_t Size() const { return GlobalSize(handle_); }

private:
    HGLOBAL handle_;
    void *memory_;
};

// A name at an offset of the host's block, as far as the block reaches.
bool TakeName(const LockedHandle &block, WORD offset, char *name, size_t size) {
    if (offset >= block.Size()) return false;
    const char *text = block.As<char>() + offset;
    CopyText(text, name, std::min(size, block.Size() - offset + 1));
    return true;
}

size_t DevModeSize(const DEVMODEA &mode) {
    return static_cast<size_t>(mode.dmSize) + mode.dmDriverExtra;
}

} // namespace

HGLOBAL GetDevNames(Session *session) {
    const PrinterState &printer = session->printer;
    const size_t driver = std::strlen(printer.DriverName) + 1;
    const size_t device = std::strlen(printer.DeviceName) + 1;
    const size_t port = std::strlen(printer.PortName) + 1;
    const HGLOBAL handle = GlobalAlloc(GHND, sizeof(DEVNAMES) + driver + device + port);
    auto *names = static_cast<DEVNAMES *>(LockHandle(handle));
    if (!names) {
        ShowSessionBox(session, "Ran out of memory (FrPrintOptions)");
        return nullptr;
    }
    names->wDriverOffset = sizeof(DEVNAMES);
    names->wDeviceOffset = static_cast<WORD>(names->wDriverOffset + driver);
    names->wOutputOffset = static_cast<WORD>(names->wDeviceOffset + device);
    auto *text = reinterpret_cast<char *>(names);
    std::strcpy(text + names->wDriverOffset, printer.DriverName);
    std::strcpy(text + names->wDeviceOffset, printer.DeviceName);
    std::strcpy(text + names->wOutputOffset, printer.PortName);
    UnlockHandle(handle);
    return handle;
}

HGLOBAL GetDevMode(Session *session) {
    const PrinterState &printer = session->printer;
    if (!printer.DevMode) return nullptr;
    const size_t size =
        std::min<size_t>(DevModeSize(*printer.DevMode), GlobalSize(printer.DevModeMemory));
    const HGLOBAL handle = GlobalAlloc(GHND, size);
    void *copy = LockHandle(handle);
    if (!copy) return nullptr;
    std::memcpy(copy, printer.DevMode, size);
    UnlockHandle(handle);
    return handle;
}

int TakeDevNames(Session *session, HGLOBAL handle) {
    PrinterState &printer = session->printer;
    const LockedHandle block(handle);
    const auto *names = block.As<DEVNAMES>();
    if (!names || block.Size() < sizeof *names) return 0;
    TakeName(block, names->wDriverOffset, printer.DriverName, sizeof printer.DriverName);
    TakeName(block, names->wDeviceOffset, printer.DeviceName, sizeof printer.DeviceName);
    TakeName(block, names->wOutputOffset, printer.PortName, sizeof printer.PortName);
    if (!EndsInDrv(printer.DriverName)) AddDriverEnding(printer.DriverName, ".drv");
    return 1;
}

int SetDevNames(Session *session, HGLOBAL handle) {
    if (!TakeDevNames(session, handle)) return 0;
    SetModified(session, 1);
    return 1;
}

int SetDevMode(Session *session, HGLOBAL handle, int takeAll) {
    PrinterState &printer = session->printer;
    const LockedHandle block(handle);
    const auto *mode = block.As<DEVMODEA>();
    if (!mode || block.Size() < offsetof(DEVMODEA, dmFields)) return 0;
    // The driver believes the size that the settings tell.
    const size_t size = std::max(DevModeSize(*mode), sizeof(DEVMODEA));
    const HGLOBAL copy_handle = sAlloc(size);
    auto *copy = static_cast<DEVMODEA *>(LockHandle(copy_handle));
    if (!copy) return 0;
    ZeroMemory(copy, size);
    std::memcpy(copy, mode, std::min(DevModeSize(*mode), block.Size()));
    if (!takeAll && printer.DevMode) {
        copy->dmOrientation = printer.DevMode->dmOrientation;
        copy->dmPaperSize = printer.DevMode->dmPaperSize;
        copy->dmPaperLength = printer.DevMode->dmPaperLength;
        copy->dmPaperWidth = printer.DevMode->dmPaperWidth;
        copy->dmDefaultSource = printer.DevMode->dmDefaultSource;
        copy->dmPrintQuality = printer.DevMode->dmPrintQuality;
    }
    if (printer.DevModeMemory) {
        UnlockHandle(printer.DevModeMemory);
        FreeHandle(printer.DevModeMemory);
    }
    printer.DevModeMemory = copy_handle;
    printer.DevMode = copy;
    SetModified(session, 1);
    return 1;
}

} // namespace tessarine
