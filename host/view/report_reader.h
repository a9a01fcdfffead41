// The pages of a saved report, each fetched through the library when it is wanted.
#pragma once

#include <list>
#include <string>

#include <windows.h>

struct PaperSize {
    double width; // inches
    double height;
};

class ReportReader {
public:
    // Throws Failure when the file is no report, or one without pages.
    explicit ReportReader(const std::string &path);
    ~ReportReader();
    ReportReader(const ReportReader &) = delete;
    ReportReader &operator=(const ReportReader &) = delete;

    const std::string &Path() const { return path_; }
    int PageCount() const { return page_count_; }
    PaperSize Paper() const { return paper_; }
    // From 1. The handle stays the reader's, and is good until the next call. Throws Failure when
    // the page can't be read.
    HMETAFILE Page(int page);

private:
    struct Fetched {
        int page;
        HMETAFILE metafile;
    };
    HMETAFILE Fetch(int page) const;

    std::string path_;   // as the user named it
    std::string source_; // what the library opens
    int page_count_ = 0;
    PaperSize paper_{};
    std::list<Fetched> latest_; // most recent first
};
