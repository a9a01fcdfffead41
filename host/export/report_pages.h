// A report file, read by its own header and page table.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "tessarine.h"

struct ReportPages {
    ReportFileHeader header{};
    std::vector<std::string> pages; // each a whole Windows metafile
};

bool IsReport(const std::string &bytes);
// The header alone. Throws Failure when the file is no report.
ReportFileHeader ReadReportHeader(const std::string &path);
// Throws Failure when the file is no report, or is damaged.
ReportPages ReadReport(const std::string &path);

// A page as a metafile handle of the platform, null when its bytes are no metafile.
HMETAFILE MetafileOf(const std::string &page);

// "2", "1-3,7" as page numbers from 1, within count; "" is all of them. Throws Failure.
std::vector<int> PageRange(const std::string &text, int count);
