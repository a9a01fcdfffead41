#include "host/export/page_check.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <windows.h>

namespace {

constexpr size_t HEADER_WORDS = 9;
constexpr size_t RECORD_WORDS = 3; // ahead of a record's parameters: its size and its function
constexpr uint16_t END_OF_PAGE = 0;

// A stretch of a page in words; what lies behind its end is 0.
class Words {
public:
    Words(const char *bytes, size_t count) : bytes_(bytes), count_(count) {}

    size_t Count() const { return count_; }
    const char *Bytes() const { return bytes_; }
    uint16_t At(size_t word) const {
        uint16_t value = 0;
        if (word < count_) std::memcpy(&value, bytes_ + word * 2, sizeof value);
        return value;
    }
    uint32_t DoubleAt(size_t word) const {
        return At(word) | static_cast<uint32_t>(At(word + 1)) << 16;
    }
    Words Part(size_t start, size_t count) const { return {bytes_ + start * 2, count}; }

private:
    const char *bytes_;
    size_t count_;
};

// ---- what stands in a record -------------------------------------------------------------------

// The upper byte of a function counts its parameters; some writers add a spare word.
bool IsPlain(uint16_t function, const Words &record) {
    const size_t count = function >> 8;
    return record.Count() == count || record.Count() == count + 1;
}

bool IsPlainText(uint16_t, const Words &record) {
    const size_t length = record.At(0);
    return length <= INT16_MAX && record.Count() == 1 + (length + 1) / 2 + 2;
}

// Advances stand for every character or for none; in both directions with ETO_PDY.
bool IsPlacedText(uint16_t, const Words &record) {
    const size_t length = record.At(2);
    const size_t clip = record.At(3) & (ETO_CLIPPED | ETO_OPAQUE) ? 4 : 0;
    const size_t text = 4 + clip + (length + 1) / 2;
    const size_t advances = record.At(3) & ETO_PDY ? 2 * length : length;
    return length <= INT16_MAX && record.Count() >= 4 &&
           (record.Count() == text || record.Count() == text + advances);
}

bool IsPolygon(uint16_t, const Words &record) {
    return record.Count() == 1 + size_t{2} * record.At(0);
}

bool IsPen(uint16_t, const Words &record) { return record.Count() == 5; }
bool IsBrush(uint16_t, const Words &record) { return record.Count() == 4; }

bool IsFont(uint16_t, const Words &record) {
    constexpr size_t FACE = 9;
    return record.Count() > FACE && record.Count() <= FACE + LF_FACESIZE / 2 &&
           std::memchr(record.Bytes() + FACE * 2, 0, (record.Count() - FACE) * 2);
}

// Bytes of the colours between a bitmap's header and its bits.
uint64_t ColorBytes(const BITMAPINFOHEADER &info) {
    uint64_t colors = info.biClrUsed;
    if (colors == 0 && info.biBitCount <= 8) colors = 1U << info.biBitCount;
    const bool masks = info.biCompression == BI_BITFIELDS && info.biSize == sizeof info;
    return colors * sizeof(RGBQUAD) + (masks ? 3 * sizeof(DWORD) : 0);
}

uint64_t ImageBytes(const BITMAPINFOHEADER &info) {
    if (info.biCompression == BI_RLE4 || info.biCompression == BI_RLE8) return info.biSizeImage;
    const uint64_t line = (static_cast<uint64_t>(info.biWidth) * info.biBitCount + 31) / 32 * 4;
    return line * static_cast<uint64_t>(std::llabs(info.biHeight));
}

bool IsBitmap(const Words &words) {
    constexpr WORD depths[] = {1, 4, 8, 16, 24, 32};
    BITMAPINFOHEADER info{};
    const uint64_t size = words.Count() * 2;
    if (size < sizeof info) return false;
    std::memcpy(&info, words.Bytes(), sizeof info);
    const bool known =
        info.biSize >= sizeof info && info.biSize <= sizeof(BITMAPV5HEADER) && info.biPlanes == 1 &&
        std::find(std::begin(depths), std::end(depths), info.biBitCount) != std::end(depths) &&
        info.biCompression <= BI_BITFIELDS && info.biWidth > 0 && info.biHeight != 0 &&
        (info.biBitCount > 8 || info.biClrUsed <= 1U << info.biBitCount);
    return known && info.biSize + ColorBytes(info) + ImageBytes(info) <= size;
}

bool IsPicture(uint16_t, const Words &record) {
    constexpr size_t BITMAP = 11; // behind the operation, the colours' use and two rectangles
    return record.Count() > BITMAP && record.At(2) == DIB_RGB_COLORS &&
           IsBitmap(record.Part(BITMAP, record.Count() - BITMAP));
}

// ---- the records that pages have ---------------------------------------------------------------

enum class Object { NONE, MADE, SELECTED, DELETED };

struct Kind {
    uint16_t function;
    bool (*sound)(uint16_t function, const Words &record) = IsPlain;
    Object object = Object::NONE;
};

constexpr Kind kinds[] = {
    {META_TEXTOUT, IsPlainText},
    {META_EXTTEXTOUT, IsPlacedText},
    {META_STRETCHDIB, IsPicture},
    {META_POLYGON, IsPolygon},
    {META_POLYLINE, IsPolygon},
    {META_CREATEPENINDIRECT, IsPen, Object::MADE},
    {META_CREATEBRUSHINDIRECT, IsBrush, Object::MADE},
    {META_CREATEFONTINDIRECT, IsFont, Object::MADE},
    {META_SELECTOBJECT, IsPlain, Object::SELECTED},
    {META_DELETEOBJECT, IsPlain, Object::DELETED},
    {META_ARC},
    {META_CHORD},
    {META_ELLIPSE},
    {META_EXCLUDECLIPRECT},
    {META_INTERSECTCLIPRECT},
    {META_LINETO},
    {META_MOVETO},
    {META_OFFSETCLIPRGN},
    {META_OFFSETVIEWPORTORG},
    {META_OFFSETWINDOWORG},
    {META_PATBLT},
    {META_PIE},
    {META_RECTANGLE},
    {META_RESTOREDC},
    {META_ROUNDRECT},
    {META_SAVEDC},
    {META_SCALEVIEWPORTEXT},
    {META_SCALEWINDOWEXT},
    {META_SETBKCOLOR},
    {META_SETBKMODE},
    {META_SETMAPMODE},
    {META_SETMAPPERFLAGS},
    {META_SETPIXEL},
    {META_SETPOLYFILLMODE},
    {META_SETRELABS},
    {META_SETROP2},
    {META_SETSTRETCHBLTMODE},
    {META_SETTEXTALIGN},
    {META_SETTEXTCHAREXTRA},
    {META_SETTEXTCOLOR},
    {META_SETTEXTJUSTIFICATION},
    {META_SETVIEWPORTEXT},
    {META_SETVIEWPORTORG},
    {META_SETWINDOWEXT},
    {META_SETWINDOWORG},
};

// The rows that a player gives to the objects of a page: each takes the first free one.
class Objects {
public:
    explicit Objects(size_t rows) : taken_(rows) {}

    bool Follow(Object object, uint16_t row) {
        if (object == Object::NONE) return true;
        if (object == Object::MADE) return Make();
        if (row >= taken_.size() || !taken_[row]) return false;
        if (object == Object::DELETED) taken_[row] = false;
        return true;
    }

private:
    bool Make() {
        const auto free = std::find(taken_.begin(), taken_.end(), false);
        if (free == taken_.end()) return false;
        *free = true;
        return true;
    }

    std::vector<bool> taken_;
};

std::string RecordFault(const Words &page, size_t place, size_t size, Objects *objects) {
    const uint16_t function = page.At(place + 2);
    const Words record = page.Part(place + RECORD_WORDS, size - RECORD_WORDS);
    const auto *kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const Kind &row) { return row.function == function; });
    const std::string at = "the record at byte " + std::to_string(place * 2);
    if (kind == std::end(kinds)) return at + " is of no known kind";
    if (!kind->sound(function, record)) return at + " has a wrong size";
    if (!objects->Follow(kind->object, record.At(0)))
        return at + " names an object that isn't there";
    return "";
}

// The system takes no other type and version from memory.
bool IsHeader(const Words &page) {
    return page.At(0) == 1 && page.At(1) == HEADER_WORDS && page.At(2) == 0x300 &&
           page.DoubleAt(3) == page.Count();
}

} // namespace

std::string PageFault(const std::string &bytes) {
    const Words page(bytes.data(), bytes.size() / 2);
    if (bytes.size() % 2 || !IsHeader(page)) return "its header tells another size or format";
    const uint32_t largest = page.DoubleAt(6);
    Objects objects(page.At(5));
    size_t place = HEADER_WORDS;
    while (place + RECORD_WORDS <= page.Count()) {
        const uint32_t size = page.DoubleAt(place);
        if (size < RECORD_WORDS || size > page.Count() - place || size > largest)
            return "the record at byte " + std::to_string(place * 2) + " has a wrong size";
        if (page.At(place + 2) == END_OF_PAGE)
            return place + size == page.Count() ? "" : "bytes follow its end";
        const std::string fault = RecordFault(page, place, size, &objects);
        if (!fault.empty()) return fault;
        place += size;
    }
    return "it has no end";
}
