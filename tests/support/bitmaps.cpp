#include "tests/support/bitmaps.h"

#include <cstdint>

namespace {

constexpr int ROWS = 2;

template <typename Record> void Append(std::string *bytes, const Record &record) {
    bytes->append(reinterpret_cast<const char *>(&record), sizeof record);
}

// One row of the picture, filled to whole double words.
std::string RowOf(int depth, bool masks) {
    using namespace std::string_literals;
    switch (depth) {
    case 1: return "\x30\0\0\0"s;
    case 4: return "\x11\x22\0\0"s;
    case 8: return "\1\1\2\2"s;
    case 16: return masks ? "\0\xF8\0\xF8\x1F\0\x1F\0"s : "\0\x7C\0\x7C\x1F\0\x1F\0"s;
    case 24: return "\0\0\xFF\0\0\xFF\xFF\0\0\xFF\0\0"s;
    default:
        return masks ? "\xFF\0\0\0\xFF\0\0\0\0\0\xFF\0\0\0\xFF\0"s
                     : "\0\0\xFF\0\0\0\xFF\0\xFF\0\0\0\xFF\0\0\0"s;
    }
}

std::string BitsOf(int depth, DWORD compression) {
    using namespace std::string_literals;
    // A row of runs, then one whose pixels stand as they are.
    if (compression == BI_RLE8) return "\2\1\2\2\0\0\0\4\1\1\2\2\0\0\0\1"s;
    if (compression == BI_RLE4) return "\2\x11\2\x22\0\0\0\4\x11\x22\0\0\0\1"s;
    const std::string row = RowOf(depth, compression == BI_BITFIELDS);
    return row + row;
}

} // namespace

SampleBitmap::SampleBitmap(int depth, DWORD compression)
    : bits(BitsOf(depth, compression)),
      name(std::to_string(depth) + " bits, compression " + std::to_string(compression)) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = 4;
    header.biHeight = ROWS;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(depth);
    header.biCompression = compression;
    header.biSizeImage = static_cast<DWORD>(bits.size());
    Append(&info, header);
    const uint32_t masks16[] = {0xF800, 0x07E0, 0x001F};
    const uint32_t masks32[] = {0x0000FF, 0x00FF00, 0xFF0000};
    if (compression == BI_BITFIELDS) {
        if (depth == 16)
            Append(&info, masks16);
        else
            Append(&info, masks32);
    }
    const RGBQUAD red{0, 0, 255, 0};
    const RGBQUAD blue{255, 0, 0, 0};
    for (int color = 0; depth <= 8 && color < 1 << depth; ++color)
        Append(&info, color == (depth == 1 ? 0 : 1) ? red : blue);
}

std::vector<SampleBitmap> AllSampleBitmaps() {
    return {{1, BI_RGB},  {4, BI_RGB},  {8, BI_RGB},  {16, BI_RGB},       {24, BI_RGB},
            {32, BI_RGB}, {4, BI_RLE4}, {8, BI_RLE8}, {16, BI_BITFIELDS}, {32, BI_BITFIELDS}};
}

std::string PictureRowOf(const std::string &info, const std::string &bits) {
    std::string row;
    Append(&row, uint16_t{1});
    Append(&row, uint16_t{36}); // points
    Append(&row, uint16_t{72});
    Append(&row, static_cast<uint32_t>(bits.size()));
    Append(&row, static_cast<uint32_t>(info.size()));
    return row + bits + info;
}
