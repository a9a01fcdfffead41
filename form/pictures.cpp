#include "form/pictures.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "form/font_table.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/owned.h"

namespace tessarine {

namespace {

constexpr int NO_ROW = -1;
constexpr uint32_t INFO_SIZE = 1064; // a header and 256 colours
constexpr int POINTS_PER_INCH = 72;
constexpr int MOST_POINTS = std::numeric_limits<uint16_t>::max(); // that a form file holds

// Both blocks of a picture row, locked for as long as it stands.
class LockedPicture {
public:
    explicit LockedPicture(const FontEntry &row)
        : row_(row), bits_(LockHandle(row.BitsBlock)),
          info_(static_cast<BITMAPINFO *>(LockHandle(row.InfoBlock))) {}
    LockedPicture(const LockedPicture &) = delete;
    LockedPicture &operator=(const LockedPicture &) = delete;
    ~LockedPicture() {
        if (bits_) UnlockHandle(row_.BitsBlock);
        if (info_) UnlockHandle(row_.InfoBlock);
    }
    explicit operator bool() const { return bits_ && info_; }
    void *Bits() const { return bits_; }
    BITMAPINFO *Info() const { return info_; }

private:
    const FontEntry &row_;
    void *bits_;
    BITMAPINFO *info_;
};

class ScreenContext {
public:
    ScreenContext() : device_(GetDC(nullptr)) {}
    ScreenContext(const ScreenContext &) = delete;
    ScreenContext &operator=(const ScreenContext &) = delete;
    ~ScreenContext() { ReleaseDC(nullptr, device_); }
    HDC Get() const { return device_; }

private:
    HDC device_;
};

bool Tell(const Session *session, const char *text) {
    ShowSessionBox(session, text);
    return false;
}

void FillInfo(BITMAPINFO *info, const BITMAP &bitmap) {
    ZeroMemory(info, INFO_SIZE);
    info->bmiHeader.biSize = sizeof info->bmiHeader;
    info->bmiHeader.biWidth = bitmap.bmWidth;
    info->bmiHeader.biHeight = bitmap.bmHeight;
    info->bmiHeader.biPlanes = 1;
    info->bmiHeader.biBitCount = 8;
    info->bmiHeader.biCompression = BI_RGB;
    info->bmiHeader.biClrUsed = 256;
}

bool MakeInfo(Session *session, FontEntry *row, HDC screen, HBITMAP picture, const BITMAP &size) {
    row->InfoSize = INFO_SIZE;
    row->InfoBlock = sAlloc(INFO_SIZE);
    auto *info = static_cast<BITMAPINFO *>(LockHandle(row->InfoBlock));
    if (!info) return Tell(session, "Ran out of memory for Bitmap Info!");
    FillInfo(info, size);
    const bool read = GetDIBits(screen, picture, 0, static_cast<UINT>(size.bmHeight), nullptr, info,
                                DIB_RGB_COLORS) != 0;
    row->BitsSize = info->bmiHeader.biSizeImage;
    UnlockHandle(row->InfoBlock);
    return read || Tell(session, "Error Creating Device Independent Bitmap Structure!");
}

bool MakeBits(Session *session, FontEntry *row, HDC screen, HBITMAP picture, const BITMAP &size) {
    row->BitsBlock = sAlloc(row->BitsSize);
    const LockedPicture locked(*row);
    if (!locked) return Tell(session, "Ran out of memory for Bitmap Image!");
    return GetDIBits(screen, picture, 0, static_cast<UINT>(size.bmHeight), locked.Bits(),
                     locked.Info(), DIB_RGB_COLORS) != 0 ||
           Tell(session, "Error Creating Device Independent Bitmap Image!");
}

} // namespace

uint32_t PointsOf(LONG pixels, int pixels_per_inch) {
    const int64_t points = std::abs(int64_t{pixels}) * POINTS_PER_INCH / pixels_per_inch;
    return static_cast<uint32_t>(std::min<int64_t>(points, MOST_POINTS));
}

int StoreBitmap(Session *session, HBITMAP bitmap) {
    const int number = FindFontRow(session);
    if (number == NO_ROW) return NO_ROW;
    FontEntry *row = &session->form.Fonts[number];
    BITMAP size{};
    GetObjectA(bitmap, sizeof size, &size);
    const ScreenContext screen;
    if (!MakeInfo(session, row, screen.Get(), bitmap, size) ||
        !MakeBits(session, row, screen.Get(), bitmap, size)) {
        ReleaseFontRow(session, number);
        return NO_ROW;
    }
    row->PointHeight = PointsOf(size.bmHeight, GetDeviceCaps(screen.Get(), LOGPIXELSY));
    row->PointWidth = PointsOf(size.bmWidth, GetDeviceCaps(screen.Get(), LOGPIXELSX));
    row->IsPicture = 1;
    row->InUse = 1;
    return number;
}

int RestoreBitmap(Session *session, HDC device, int number) {
    FontEntry *row = &session->form.Fonts[number];
    const LockedPicture locked(*row);
    if (!locked) return Tell(session, "Ran out of memory for Bitmap Image and info!");
    if (row->Bitmap) DeleteObject(row->Bitmap);
    const BITMAPINFOHEADER &header = locked.Info()->bmiHeader;
    const int height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
    row->Bitmap =
        CreateBitmap(header.biWidth, height, static_cast<UINT>(GetDeviceCaps(device, PLANES)),
                     static_cast<UINT>(GetDeviceCaps(device, BITSPIXEL)), nullptr);
    if (!row->Bitmap) return Tell(session, "Error Creating the Bitmap");
    if (!SetDIBits(device, row->Bitmap, 0, static_cast<UINT>(height), locked.Bits(), locked.Info(),
                   DIB_RGB_COLORS))
        return Tell(session, "Error Initializing the Bitmap");
    BITMAP size{};
    GetObjectA(row->Bitmap, sizeof size, &size);
    row->PixelHeight = static_cast<uint32_t>(size.bmHeight);
    row->PixelWidth = static_cast<uint32_t>(size.bmWidth);
    row->Height = row->Ascent = row->PointHeight * UNITS_PER_INCH / POINTS_PER_INCH;
    for (int32_t &width : row->CharWidth)
        width = static_cast<int32_t>(row->PointWidth * UNITS_PER_INCH / POINTS_PER_INCH);
    return 1;
}

} // namespace tessarine
