#include "form/bitmaps.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace tessarine {

namespace {

constexpr size_t MASKS = 3;
constexpr uint64_t MOST_COLORS = 256;
constexpr uint64_t MOST_PIXELS = INT32_MAX / sizeof(RGBQUAD); // of a device's bitmap

struct BitmapFormat {
    int depth;
    DWORD compression;
    size_t masks; // between header and colours
};

constexpr BitmapFormat formats[] = {
    {1, BI_RGB, 0},
    {4, BI_RGB, 0},
    {8, BI_RGB, 0},
    {16, BI_RGB, 0},
    {24, BI_RGB, 0},
    {32, BI_RGB, 0},
    {4, BI_RLE4, 0},
    {8, BI_RLE8, 0},
    {16, BI_BITFIELDS, MASKS},
    {32, BI_BITFIELDS, MASKS},
};

const BitmapFormat *FormatOf(const BITMAPINFOHEADER &header) {
    const auto *found =
        std::find_if(std::begin(formats), std::end(formats), [&](const BitmapFormat &format) {
            return format.depth == header.biBitCount && format.compression == header.biCompression;
        });
    return found == std::end(formats) ? nullptr : found;
}

bool IsCompressed(const BITMAPINFOHEADER &header) {
    return header.biCompression == BI_RLE4 || header.biCompression == BI_RLE8;
}

bool SizeFits(const BITMAPINFOHEADER &header) {
    if (header.biWidth <= 0 || header.biHeight == 0 || header.biHeight == INT32_MIN) return false;
    if (IsCompressed(header) && header.biHeight < 0) return false; // those stand bottom up alone
    return static_cast<uint64_t>(header.biWidth) *
               static_cast<uint64_t>(std::abs(header.biHeight)) <=
           MOST_PIXELS;
}

// More bits than 8 tell the colour itself; a table behind their header is a hint for palettes.
bool HasColors(const BITMAPINFOHEADER &header) { return header.biBitCount <= 8; }

uint64_t Colors(const BITMAPINFOHEADER &header) {
    if (header.biClrUsed) return header.biClrUsed;
    return HasColors(header) ? uint64_t{1} << header.biBitCount : 0;
}

uint64_t PlainSize(const BITMAPINFOHEADER &header) {
    const uint64_t stride =
        (static_cast<uint64_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
    return stride * static_cast<uint64_t>(std::abs(header.biHeight));
}

// The bytes of a compressed bitmap up to and with its end mark; 0 when a run leaves the block or
// the bitmap before.
uint64_t CompressedSize(const BITMAPINFOHEADER &header, const uint8_t *bits, size_t size) {
    enum { LINE_END, BITMAP_END, MOVE };
    int64_t x = 0;
    int64_t y = 0;
    for (size_t place = 0; place + 2 <= size;) {
        const int run = bits[place];
        const int code = bits[place + 1];
        place += 2;
        if (run) {
            x += run;
        } else if (code == LINE_END) {
            x = 0;
            ++y;
        } else if (code == BITMAP_END) {
            return place;
        } else if (code == MOVE) {
            if (place + 2 > size) return 0;
            x += bits[place];
            y += bits[place + 1];
            place += 2;
        } else { // so many pixels as they are, filled to whole words
            x += code;
            place += static_cast<size_t>((code * header.biBitCount + 15) / 16 * 2);
        }
        if (x > header.biWidth || y > header.biHeight || (x > 0 && y == header.biHeight)) return 0;
    }
    return 0;
}

} // namespace

bool MendBitmap(BITMAPINFO *info, size_t info_size, const void *bits, size_t bits_size) {
    BITMAPINFOHEADER header; // a copy: the block may stand at any address
    if (info_size < sizeof header) return false;
    std::memcpy(&header, info, sizeof header);
    if (header.biSize != sizeof header || header.biPlanes != 1) return false;
    const BitmapFormat *format = FormatOf(header);
    if (!format || !SizeFits(header)) return false;
    const uint64_t colors = Colors(header);
    if (HasColors(header) && colors > MOST_COLORS) return false;
    if (info_size < sizeof header + (format->masks + colors) * sizeof(RGBQUAD)) return false;
    const bool compressed = IsCompressed(header);
    const uint64_t needed =
        compressed ? CompressedSize(header, static_cast<const uint8_t *>(bits), bits_size)
                   : PlainSize(header);
    if (needed == 0 || needed > bits_size) return false;
    const DWORD size = header.biSizeImage;
    if ((size || compressed) && (size < needed || size > bits_size))
        header.biSizeImage = compressed ? static_cast<DWORD>(needed) : 0;
    std::memcpy(info, &header, sizeof header);
    return true;
}

FullBitmapInfo::FullBitmapInfo(const BITMAPINFO &info) {
    BITMAPINFOHEADER header = info.bmiHeader;
    const uint64_t colors = HasColors(header) ? Colors(header) : 0;
    header.biClrUsed = static_cast<DWORD>(colors);
    if (!header.biSizeImage) header.biSizeImage = static_cast<DWORD>(PlainSize(header));
    const size_t masks = header.biCompression == BI_BITFIELDS ? MASKS : 0;
    std::memcpy(bytes_, &header, sizeof header);
    std::memcpy(bytes_ + sizeof header, info.bmiColors, (masks + colors) * sizeof(RGBQUAD));
}

} // namespace tessarine
