#include "form/font_rows.h"

#include <algorithm>

#include "form/bitmaps.h"
#include "form/font_table.h"
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

enum class RowRead {
    Done,
    Refused, // the row alone: what follows it in the file can be read
    Broken,
};

RowRead CheckPicture(const FontEntry &font) {
    const void *bits = LockHandle(font.BitsBlock);
    auto *info = static_cast<BITMAPINFO *>(LockHandle(font.InfoBlock));
    const bool sound = bits && info && MendBitmap(info, font.InfoSize, bits, font.BitsSize);
    if (bits) UnlockHandle(font.BitsBlock);
    if (info) UnlockHandle(font.InfoBlock);
    return sound ? RowRead::Done : RowRead::Refused;
}

RowRead ReadPicture(Session *session, HANDLE file, FontEntry *font) {
    PictureRow row;
    if (!ReadBlock(file, &row, sizeof row)) return RowRead::Broken;
    font->IsPicture = 1;
    font->PointHeight = row.PointHeight;
    font->PointWidth = row.PointWidth;
    font->BitsSize = row.BitsSize;
    font->InfoSize = row.InfoSize;
    if (row.InfoSize == 0) return RowRead::Done;
    if (uint64_t{row.BitsSize} + row.InfoSize > BytesLeft(file)) return RowRead::Broken;
    if (!ReadMovable(session, file, row.BitsSize, &font->BitsBlock) ||
        !ReadMovable(session, file, row.InfoSize, &font->InfoBlock))
        return RowRead::Broken;
    return CheckPicture(*font);
}

RowRead ReadFont(HANDLE file, FontEntry *font) {
    PortableFont packed;
    font->IsPicture = 0;
    const bool read =
        ReadBlock(file, &packed, sizeof packed) && ReadPortableFont(packed, &font->LogFont);
    return read ? RowRead::Done : RowRead::Broken;
}

RowRead ReadRow(Session *session, HANDLE file, int row) {
    FontEntry *font = &session->form.Fonts[row];
    uint16_t kind;
    if (!ReadBlock(file, &kind, sizeof kind)) return RowRead::Broken;
    if (kind == KIND_FONT) return ReadFont(file, font);
    return row == 0 ? RowRead::Broken : ReadPicture(session, file, font);
}

// What was read of a bad row goes; items that name the row keep it in use. The default font stays
// whatever the file holds.
void DropRow(Session *session, int row) {
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
    bool whole = true;
    for (int row = 0; row < rows; ++row) {
        const RowRead outcome = ReadRow(session, file, row);
        if (outcome == RowRead::Done) continue;
        DropRow(session, row);
        whole = false;
        if (outcome == RowRead::Broken) break;
    }
    return whole;
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
