#include "host/view/report_reader.h"

#include <cstdint>
#include <cstring>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/export/report_pages.h"
#include "tessarine.h"

namespace {

constexpr size_t PAGES_KEPT = 8;
constexpr PaperSize LETTER{8.5, 11.0};
constexpr float WIDEST_PAPER = 200.0F; // inches

// The library wants to write to what it opens; a report that can't be written is viewed in a copy.
std::string Writable(const std::string &path) {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
        return path;
    }
    char folder[MAX_PATH] = "";
    char copy[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    if (!GetTempFileNameA(folder, "tes", 0, copy) || !CopyFileA(path.c_str(), copy, FALSE))
        throw Failure(path + ": can't be opened: " + SystemMessage(GetLastError()));
    SetFileAttributesA(copy, FILE_ATTRIBUTE_NORMAL);
    return copy;
}

PaperSize PaperOf(const ReportFileHeader &header) {
    const float width = header.PaperWidth;
    const float height = header.PaperHeight;
    const bool sound = width > 0 && height > 0 && width < WIDEST_PAPER && height < WIDEST_PAPER;
    return sound ? PaperSize{width, height} : LETTER;
}

std::string FullPath(const std::string &path) {
    char full[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    if (length == 0 || length >= sizeof RepViewParams{}.ReportFileName)
        throw Failure(path + ": the path is too long", EXIT_USAGE);
    return full;
}

} // namespace

ReportReader::ReportReader(const std::string &path) : path_(FullPath(path)) {
    const ReportPages report(path_);
    paper_ = PaperOf(report.Header());
    page_count_ = report.Count();
    if (page_count_ == 0) throw Failure(path + ": the report has no page; run it again");
    source_ = Writable(path_);
}

ReportReader::~ReportReader() {
    for (const Fetched &fetched : latest_) DeleteMetaFile(fetched.metafile);
    if (source_ != path_) DeleteFileA(source_.c_str());
}

HMETAFILE ReportReader::Page(int page) {
    for (auto fetched = latest_.begin(); fetched != latest_.end(); ++fetched) {
        if (fetched->page != page) continue;
        latest_.splice(latest_.begin(), latest_, fetched);
        return latest_.front().metafile;
    }
    const HMETAFILE metafile = Fetch(page);
    latest_.push_front({page, metafile});
    if (latest_.size() > PAGES_KEPT) {
        DeleteMetaFile(latest_.back().metafile);
        latest_.pop_back();
    }
    return metafile;
}

HMETAFILE ReportReader::Fetch(int page) const {
    ReportPages(path_).Page(page); // told before the library hands it to a player
    uint32_t label_form = 0;
    HostData data{};
    data.LabelForm = &label_form;
    SetCRepData(&data);
    RepViewParams block{};
    std::strcpy(block.ReportFileName, source_.c_str());
    block.Device = 'P'; // pages are wanted without a window
    GetTempPathA(MAX_PATH, block.TempDir);
    int32_t number = page;
    const HMETAFILE metafile = RepView(&block, &number, nullptr, nullptr);
    RemoveCRepData(&data);
    if (!metafile)
        throw Failure(path_ + ": page " + std::to_string(page) +
                      " can't be read; run the report again");
    return metafile;
}
