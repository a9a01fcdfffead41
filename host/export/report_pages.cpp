#include "host/export/report_pages.h"

#include <cstdio>
#include <cstring>
#include <sstream>

#include "host/cli/failure.h"
#include "host/data/files.h"

bool IsReport(const std::string &bytes) {
    uint32_t magic = 0;
    if (bytes.size() >= sizeof(ReportFileHeader)) std::memcpy(&magic, bytes.data(), sizeof magic);
    return magic == SIGNATURE_REPORT;
}

ReportFileHeader ReadReportHeader(const std::string &path) {
    ReportFileHeader header{};
    const std::string bytes = ReadFileStart(path, sizeof header);
    if (!IsReport(bytes)) throw Failure(path + ": is not a report file");
    std::memcpy(&header, bytes.data(), sizeof header);
    return header;
}

ReportPages ReadReport(const std::string &path) {
    const std::string bytes = ReadFileBytes(path);
    if (!IsReport(bytes)) throw Failure(path + ": is not a report file");
    ReportPages report;
    std::memcpy(&report.header, bytes.data(), sizeof report.header);
    const int32_t count = report.header.PageCount;
    const int64_t table = report.header.PageTableOffset;
    const auto damaged = [&] { return Failure(path + ": the report is damaged; run it again"); };
    if (count < 0 || count > MAX_SCR_PAGES || table < 0 ||
        table + (count + 1) * 4 > static_cast<int64_t>(bytes.size()))
        throw damaged();
    for (int32_t page = 0; page < count; ++page) {
        uint32_t limits[2];
        std::memcpy(limits, bytes.data() + table + page * 4, sizeof limits);
        if (limits[1] < limits[0] || limits[1] > bytes.size()) throw damaged();
        report.pages.push_back(bytes.substr(limits[0], limits[1] - limits[0]));
    }
    return report;
}

HMETAFILE MetafileOf(const std::string &page) {
    return SetMetaFileBitsEx(static_cast<UINT>(page.size()),
                             reinterpret_cast<const BYTE *>(page.data()));
}

std::vector<int> PageRange(const std::string &text, int count) {
    std::vector<int> pages;
    for (int page = 1; text.empty() && page <= count; ++page) pages.push_back(page);
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');) {
        int first = 0;
        int last = 0;
        int used = 0;
        const int size = static_cast<int>(part.size());
        if (std::sscanf(part.c_str(), "%d-%d%n", &first, &last, &used) != 2 || used != size) {
            if (std::sscanf(part.c_str(), "%d%n", &first, &used) != 1 || used != size) first = 0;
            last = first;
        }
        if (first < 1 || last < first || last > count)
            throw Failure("--pages " + text + ": the report has the pages 1 to " +
                              std::to_string(count) + "; write them as 2 or 1-3",
                          EXIT_USAGE);
        for (int page = first; page <= last; ++page) pages.push_back(page);
    }
    return pages;
}
