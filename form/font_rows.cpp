#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "form/fonts.h"
#include "form/form_blocks.h"
#include "form/records.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

constexpr uint16_t KIND_FONT = 0;
constexpr uint16_t KIND_PICTURE = 1;

#pragma pack(push, 1)
struct PictureRow {       // a picture row behind its kind
    uint16_t PointHeight; //  0  1/72 inch
    uint16_t PointWidth;  //  2
    uint32_t BitsSize;    //  4  bytes
    uint32_t InfoSize;    //  8  bytes
};
#pragma pack(pop)
static_assert(sizeof(PictureRow) == 12 && offsetof(PictureRow, InfoSize) == 8);

// What is left of the file: no size in it is believed beyond that.
uint64_t BytesLeft(HANDLE file) {
    LARGE_INTEGER size{};
    LARGE_INTEGER here{};
    if (!GetFileSizeEx(file, &size) || !SetFilePointerEx(file, {}, &here, FILE_CURRENT)) return 0;
    return static_cast<uint64_t>(size.QuadPart - here.QuadPart);
}

bool ReadMovable(Session *session, HANDLE file, uint32_t size, HGLOBAL *block) {
    *block = sAlloc(size);
    void *memory = LockHandle(*block);
    if (!memory) FatalError(session, "Ran Out of Memory for Picture Bitmap", CODE_MEMORY);
    const bool read = ReadBlock(file, memory, size);
    UnlockHandle(*block);
    return read;
}

bool IsDepth(int bits) {
    constexpr int depths[] = {1, 4, 8, 16, 24, 32};
    return std::find(std::begin(depths), std::end(depths), bits) != std::end(depths);
}

// A block that is no device-independent bitmap with all its bits would be read beyond its end.
bool IsWholeBitmap(const FontEntry &font) {
    const auto *info = static_cast<const BITMAPINFOHEADER *>(LockHandle(font.InfoBlock));
    if (!info) return false;
    bool whole = font.InfoSize >= sizeof *info && info->biSize == sizeof *info &&
                 IsDepth(info->biBitCount) && info->biCompression == BI_RGB && info->biWidth > 0 &&
                 info->biHeight != 0 && info->biHeight != INT32_MIN;
    if (whole) {
        const uint64_t colors = info->biClrUsed         ? info->biClrUsed
                                : info->biBitCount <= 8 ? uint64_t{1} << info->biBitCount
                                                        : 0;
        const uint64_t stride =
            (static_cast<uint64_t>(info->biWidth) * info->biBitCount + 31) / 32 * 4;
        const uint64_t height = static_cast<uint64_t>(std::abs(info->biHeight));
        whole = font.InfoSize >= sizeof *info + colors * sizeof(RGBQUAD) &&
                font.BitsSize >= stride * height;
    }
    UnlockHandle(font.InfoBlock);
    return whole;
}

bool ReadPicture(Session *session, HANDLE file, FontEntry *font) {
    PictureRow row;
    if (!ReadBlock(file, &row, sizeof row)) return false;
    font->IsPicture = 1;
    font->PointHeight = row.PointHeight;
    font->PointWidth = row.PointWidth;
    font->BitsSize = row.BitsSize;
    font->InfoSize = row.InfoSize;
    if (row.InfoSize == 0) return true;
    if (uint64_t{row.BitsSize} + row.InfoSize > BytesLeft(file)) return false;
    return ReadMovable(session, file, row.BitsSize, &font->BitsBlock) &&
           ReadMovable(session, file, row.InfoSize, &font->InfoBlock) && IsWholeBitmap(*font);
}

bool ReadFont(HANDLE file, FontEntry *font) {
    PortableFont packed;
    font->IsPicture = 0;
    return ReadBlock(file, &packed, sizeof packed) && ReadPortableFont(packed, &font->LogFont);
}

bool ReadRow(Session *session, HANDLE file, int row) {
    FontEntry *font = &session->form.Fonts[row];
    uint16_t kind;
    if (!ReadBlock(file, &kind, sizeof kind)) return false;
    if (kind == KIND_FONT) return ReadFont(file, font);
    return row != 0 && ReadPicture(session, file, font);
}

// What was read of a broken row goes; items that name the row keep it in use. The default font
// stays whatever the file holds.
void DropBrokenRow(Session *session, int row) {
    if (row == 0) return;
    const uint32_t in_use = session->form.Fonts[row].InUse;
    ReleaseFontRow(session, row);
    session->form.Fonts[row].InUse = in_use;
}

FontWrite WritePicture(HANDLE file, const FontEntry &font) {
    const PictureRow row{static_cast<uint16_t>(font.PointHeight),
                         static_cast<uint16_t>(font.PointWidth), font.BitsSize, font.InfoSize};
    if (!WriteBlock(file, &KIND_PICTURE, sizeof KIND_PICTURE) ||
        !WriteBlock(file, &row, sizeof row))
        return FontWrite::Silent;
    if (row.InfoSize == 0) return FontWrite::Done;
    const void *bits = LockHandle(font.BitsBlock);
    const void *info = LockHandle(font.InfoBlock);
    FontWrite outcome = FontWrite::NoMemory;
    if (bits && info)
        outcome = WriteBlock(file, bits, row.BitsSize) && WriteBlock(file, info, row.InfoSize)
                      ? FontWrite::Done
                      : FontWrite::Silent;
    if (bits) UnlockHandle(font.BitsBlock);
    if (info) UnlockHandle(font.InfoBlock);
    return outcome;
}

FontWrite WriteFont(HANDLE file, const FontEntry &font) {
    PortableFont packed{};
    if (!WritePortableFont(font.LogFont, &packed)) return FontWrite::Silent;
    return WriteBlock(file, &KIND_FONT, sizeof KIND_FONT) &&
                   WriteBlock(file, &packed, sizeof packed)
               ? FontWrite::Done
               : FontWrite::Silent;
}

} // namespace

bool ReadFontRows(Session *session, HANDLE file) {
    const int rows = std::min<int>(session->form.Header.FontCount, MAX_FONTS);
    for (int row = 0; row < rows; ++row) {
        if (ReadRow(session, file, row)) continue;
        DropBrokenRow(session, row);
        return false;
    }
    return true;
}

FontWrite WriteFontRows(Session *session, HANDLE file) {
    for (int row = 0; row < session->form.FontCount; ++row) {
        FontEntry &font = session->form.Fonts[row];
        if (!font.InUse) {
            const uint32_t picture = font.IsPicture;
            ReleaseFontRow(session, row);
            font.IsPicture = picture;
        }
        const FontWrite outcome = font.IsPicture ? WritePicture(file, font) : WriteFont(file, font);
        if (outcome != FontWrite::Done) return outcome;
    }
    return FontWrite::Done;
}

} // namespace tessarine
