#include "tests/support/page_texts.h"

#include <cstring>

#include "tests/support/metafile_records.h"

std::vector<PageText> TextsOf(const std::string &bytes, bool *sound) {
    const Metafile metafile = ReadMetafile(bytes);
    *sound = metafile.Sound();
    std::vector<PageText> texts;
    for (const MetafileRecord &record : metafile.records) {
        if (!IsText(record)) continue;
        const MetafileText text = TextOf(record);
        texts.push_back({text.x, text.y, text.text});
    }
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
