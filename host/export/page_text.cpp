#include "host/export/page_text.h"

#include "host/base/failure.h"
#include "host/forms/record_json.h"

namespace {

constexpr WORD EXT_TEXT_OUT = 0x0A32;
constexpr WORD TEXT_OUT = 0x0521;
constexpr size_t HEADER_WORDS = 3; // of a record: its size in words, which takes two; its function

std::string Line(int x, int y, const char *text, size_t length) {
    return std::to_string(x) + "\t" + std::to_string(y) + "\t" + ToUtf8(std::string(text, length)) +
           "\n";
}

int CALLBACK Collect(HDC, HANDLETABLE *, METARECORD *record, int, LPARAM lines) {
    // records stand at any word of a page, which is no place for the size to be read whole
    const auto *header = reinterpret_cast<const uint16_t *>(record);
    const auto *words = reinterpret_cast<const int16_t *>(header + HEADER_WORDS);
    const size_t whole = header[0] | static_cast<size_t>(header[1]) << 16;
    const size_t size = whole < HEADER_WORDS ? 0 : whole - HEADER_WORDS;
    const uint16_t function = header[2];
    auto *text = reinterpret_cast<std::string *>(lines);
    if (function == EXT_TEXT_OUT && size >= 4) {
        const size_t length = static_cast<uint16_t>(words[2]);
        const size_t start = words[3] & (ETO_CLIPPED | ETO_OPAQUE) ? 8 : 4;
        if (start + (length + 1) / 2 <= size)
            *text +=
                Line(words[1], words[0], reinterpret_cast<const char *>(words + start), length);
    } else if (function == TEXT_OUT && size >= 3) {
        const size_t length = static_cast<uint16_t>(words[0]);
        const size_t behind = 1 + (length + 1) / 2;
        if (behind + 2 <= size)
            *text += Line(words[behind + 1], words[behind],
                          reinterpret_cast<const char *>(words + 1), length);
    }
    return 1;
}

} // namespace

std::string PageText(const std::string &page) {
    const HMETAFILE metafile = MetafileOf(page);
    if (!metafile) throw Failure("there is no memory for a page");
    std::string text;
    EnumMetaFile(nullptr, metafile, reinterpret_cast<MFENUMPROC>(Collect),
                 reinterpret_cast<LPARAM>(&text));
    DeleteMetaFile(metafile);
    return text;
}
