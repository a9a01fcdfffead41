#include "host/tess/pages_command.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/export/page_png.h"
#include "host/export/page_text.h"

namespace {

void PrintTexts(const ReportPages &report, const std::vector<int> &pages) {
    for (const int page : pages) {
        std::printf("page %d\n", page);
        const std::string text = PageText(report.Page(page));
        std::fwrite(text.data(), 1, text.size(), stdout);
    }
}

void DrawPages(const PagesOptions &options, const ReportPages &report,
               const std::vector<int> &pages) {
    CreateDirectoryA(options.folder.c_str(), nullptr);
    for (const int page : pages) {
        char name[32];
        std::snprintf(name, sizeof name, "\\page-%03d.png", page);
        KeepInput(options.folder + name, options.report);
        WritePagePng(report, page, options.dpi, options.folder + name);
        std::printf("%s%s\n", options.folder.c_str(), name);
    }
}

} // namespace

int PagesCommand(const PagesOptions &options) {
    if (options.folder.empty() && !options.text)
        throw Failure("pages: say what to make: --png FOLDER or --text", EXIT_USAGE);
    const ReportPages report(options.report);
    const std::vector<int> pages = PageRange(options.pages, report.Count());
    if (options.text)
        PrintTexts(report, pages);
    else
        DrawPages(options, report, pages);
    return EXIT_DONE;
}
