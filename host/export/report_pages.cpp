#include "host/export/report_pages.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <utility>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/export/page_check.h"

bool IsReport(const std::string &bytes) {
    uint32_t magic = 0;
    if (bytes.size() >= sizeof(ReportFileHeader)) std::memcpy(&magic, bytes.data(), sizeof magic);
    return magic == SIGNATURE_REPORT;
}

ReportFileHeader ReadReportHeader(const std::string &path) {
    ReportFileHeader header{};
    const std::string bytes = ReadFilePart(path, 0, sizeof header);
    if (!IsReport(bytes)) throw Failure(path + ": is not a report file");
    std::memcpy(&header, bytes.data(), sizeof header);
    return header;
}

ReportPages::ReportPages(std::string path)
    : path_(std::move(path)), header_(ReadReportHeader(path_)) {
    const int32_t count = header_.PageCount;
    const int32_t table = header_.PageTableOffset;
    const auto damaged = [&] { return Failure(path_ + ": the report is damaged; run it again"); };
    if (count < 0 || count > MAX_SCR_PAGES || table < 0) throw damaged();
    limits_.resize(static_cast<size_t>(count) + 1);
    const size_t size = limits_.size() * sizeof limits_[0];
    const std::string bytes = ReadFilePart(path_, static_cast<uint32_t>(table), size);
    if (bytes.size() != size) throw damaged();
    std::memcpy(limits_.data(), bytes.data(), size);
    if (!std::is_sorted(limits_.begin(), limits_.end()) || limits_.front() < sizeof header_ ||
        limits_.back() > static_cast<uint32_t>(table))
        throw damaged();
}

std::string ReportPages::Page(int page) const {
    const std::string name = path_ + ": page " + std::to_string(page);
    if (page < 1 || page > Count())
        throw Failure(name + ": the report has the pages 1 to " + std::to_string(Count()));
    const uint32_t start = limits_[static_cast<size_t>(page) - 1];
    const std::string bytes =
        ReadFilePart(path_, start, limits_[static_cast<size_t>(page)] - start);
    const std::string fault = PageFault(bytes);
    if (!fault.empty()) throw Failure(name + " is damaged: " + fault + "; run the report again");
    return bytes;
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
