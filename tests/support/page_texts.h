// What a page of a report file draws, read off its metafile record by record.
#pragma once

#include <string>
#include <vector>

#include "tessarine_records.h"

struct PageText {
    int x; // form units
    int y;
    std::string text;

    bool operator==(const PageText &other) const = default;
};

// The texts of a metafile in the order of drawing. *sound turns false when a header, a size or an
// object number of it is wrong.
std::vector<PageText> TextsOf(const std::string &metafile, bool *sound);

// The pages of a report file as the page table cuts them; empty when the file is none.
std::vector<std::string> PagesOf(const std::string &report);
ReportFileHeader HeaderOf(const std::string &report);

// The texts of one page, from 0, each as "x,y text".
std::vector<std::string> PageLines(const std::string &report, size_t page);
// The texts of one page without their places.
std::vector<std::string> PageWords(const std::string &report, size_t page);
