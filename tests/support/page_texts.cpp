#include "tests/support/page_texts.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr size_t HEADER_WORDS = 9;
constexpr uint16_t RECORD_EXT_TEXT_OUT = 0x0A32;
constexpr uint16_t RECORD_TEXT_OUT = 0x0521;
constexpr uint16_t RECORD_SELECT_OBJECT = 0x012D;
constexpr uint16_t RECORD_DELETE_OBJECT = 0x01F0;

uint16_t WordAt(const std::string &bytes, size_t word) {
    uint16_t value = 0;
    if (word * 2 + 2 <= bytes.size()) std::memcpy(&value, bytes.data() + word * 2, 2);
    return value;
}

uint32_t DoubleWordAt(const std::string &bytes, size_t word) {
    return WordAt(bytes, word) | static_cast<uint32_t>(WordAt(bytes, word + 1)) << 16;
}

int Signed(uint16_t value) { return static_cast<int16_t>(value); }

PageText ExtendedText(const std::string &bytes, size_t word) {
    const size_t length = WordAt(bytes, word + 5);
    const bool has_rectangle = WordAt(bytes, word + 6) & (ETO_CLIPPED | ETO_OPAQUE);
    const size_t start = (word + 7 + (has_rectangle ? 4 : 0)) * 2;
    return {Signed(WordAt(bytes, word + 4)), Signed(WordAt(bytes, word + 3)),
            bytes.substr(start, length)};
}

PageText PlainText(const std::string &bytes, size_t word) {
    const size_t length = WordAt(bytes, word + 3);
    const size_t behind = word + 4 + (length + 1) / 2;
    return {Signed(WordAt(bytes, behind + 1)), Signed(WordAt(bytes, behind)),
            bytes.substr((word + 4) * 2, length)};
}

} // namespace

std::vector<PageText> TextsOf(const std::string &bytes, bool *sound) {
    std::vector<PageText> texts;
    const uint16_t objects = WordAt(bytes, 5);
    *sound = WordAt(bytes, 1) == HEADER_WORDS && DoubleWordAt(bytes, 3) * 2 == bytes.size();
    uint32_t largest = 0;
    size_t word = HEADER_WORDS;
    bool ended = false;
    while (*sound && !ended && (word + 3) * 2 <= bytes.size()) {
        const uint32_t size = DoubleWordAt(bytes, word);
        const uint16_t function = WordAt(bytes, word + 2);
        if (size < 3 || (word + size) * 2 > bytes.size()) *sound = false;
        largest = std::max(largest, size);
        if ((function == RECORD_SELECT_OBJECT || function == RECORD_DELETE_OBJECT) &&
            WordAt(bytes, word + 3) >= objects)
            *sound = false;
        if (function == RECORD_EXT_TEXT_OUT) texts.push_back(ExtendedText(bytes, word));
        if (function == RECORD_TEXT_OUT) texts.push_back(PlainText(bytes, word));
        ended = function == 0;
        word += size;
    }
    *sound = *sound && ended && word * 2 == bytes.size() && largest == DoubleWordAt(bytes, 6);
    return texts;
}

ReportFileHeader HeaderOf(const std::string &report) {
    ReportFileHeader header{};
    if (report.size() >= sizeof header) std::memcpy(&header, report.data(), sizeof header);
    return header;
}

std::vector<std::string> PagesOf(const std::string &report) {
    const ReportFileHeader header = HeaderOf(report);
    std::vector<std::string> pages;
    const auto table = static_cast<size_t>(header.PageTableOffset);
    if (header.Magic != SIGNATURE_REPORT ||
        table + (static_cast<size_t>(header.PageCount) + 1) * 4 > report.size())
        return pages;
    for (int page = 0; page < header.PageCount; ++page) {
        uint32_t limits[2];
        std::memcpy(limits, report.data() + table + static_cast<size_t>(page) * 4, sizeof limits);
        pages.push_back(report.substr(limits[0], limits[1] - limits[0]));
    }
    return pages;
}

std::vector<std::string> PageLines(const std::string &report, size_t page) {
    std::vector<std::string> lines;
    const std::vector<std::string> pages = PagesOf(report);
    bool sound = false;
    if (page >= pages.size()) return lines;
    for (const PageText &text : TextsOf(pages[page], &sound))
        lines.push_back(std::to_string(text.x) + "," + std::to_string(text.y) + " " + text.text);
    if (!sound) lines.push_back("(the metafile is not sound)");
    return lines;
}

std::vector<std::string> PageWords(const std::string &report, size_t page) {
    std::vector<std::string> words;
    for (const std::string &line : PageLines(report, page))
        words.push_back(line.substr(line.find(' ') + 1));
    return words;
}
