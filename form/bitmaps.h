// Device-independent bitmaps, and whether they are what their headers say.
#pragma once

#include <cstddef>

#include "state/windows.h"

namespace tessarine {

// True when whoever draws the bitmap by its header stays inside both blocks. A biSizeImage that
// doesn't fit the bits is mended; depth, compression and colours stay. False for anything that a
// device bitmap couldn't hold, for compressed bits that run out of their block or their rows, and
// for headers other than that of 40 bytes.
bool MendBitmap(BITMAPINFO *info, size_t info_size, const void *bits, size_t bits_size);

// The header of a sound bitmap with the numbers that it may leave out, since not every recording
// of a drawing counts them itself.
class FullBitmapInfo {
public:
    explicit FullBitmapInfo(const BITMAPINFO &info);
    const BITMAPINFO *Get() const { return &info_; }

private:
    static constexpr size_t MOST_ENTRIES = 3 + 256; // masks and colours
    union {
        BITMAPINFO info_;
        char bytes_[sizeof(BITMAPINFOHEADER) + MOST_ENTRIES * sizeof(RGBQUAD)];
    };
};

} // namespace tessarine
