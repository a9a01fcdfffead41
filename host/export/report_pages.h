// A report file, read by its own header and page table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

#include "tessarine.h"

class ReportPages {
public:
    // Throws Failure when the file is no report, or its page table is damaged.
    explicit ReportPages(std::string path);

    const ReportFileHeader &Header() const { return header_; }
    int Count() const { return static_cast<int>(limits_.size()) - 1; }
    // The bytes of a page, from 1: a whole Windows metafile that can be played. Throws Failure with
    // the page's number when there is no such page, or it is damaged.
    std::string Page(int page) const;

private:
    std::string path_;
    ReportFileHeader header_;
    std::vector<uint32_t> limits_; // where pages begin and end
};

bool IsReport(const std::string &bytes);
// The header alone. Throws Failure when the file is no report.
ReportFileHeader ReadReportHeader(const std::string &path);

// A page as a metafile handle of the platform, null when there is no memory for it.
HMETAFILE MetafileOf(const std::string &page);

// "2", "1-3,7" as page numbers from 1, within count; "" is all of them. Throws Failure.
std::vector<int> PageRange(const std::string &text, int count);
