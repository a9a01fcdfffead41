#include <cstdio>
#include <cstring>

#include "host/cli/commands.h"
#include "host/cli/failure.h"
#include "host/export/report_pages.h"
#include "host/print/pdf_output.h"
#include "host/print/print_job.h"
#include "host/print/printers.h"

namespace {

std::vector<int> Wanted(const std::string &range, const ReportReader &report) {
    const int count = report.PageCount();
    return PageRange(range.empty() ? "1-" + std::to_string(count) : range, count);
}

} // namespace

int PrintCommand(const PrintOptions &options) {
    const ReportFileHeader header = ReadReportHeader(options.report);
    PrintRequest request{ChosenPrinter(options.printer), options.report, "", options.copies};
    if (*header.ReportName)
        request.title.assign(header.ReportName,
                             strnlen(header.ReportName, sizeof header.ReportName));
    ReportReader report(options.report);
    const std::vector<int> pages = Wanted(options.pages, report);
    PrintPagesOf(&report, pages, request);
    std::printf("%s: %zu page%s sent to %s\n", options.report.c_str(), pages.size(),
                pages.size() == 1 ? "" : "s", request.printer.c_str());
    return EXIT_DONE;
}

int PdfCommand(const PrintOptions &options) {
    ReportReader report(options.report);
    const std::vector<int> pages = Wanted(options.pages, report);
    WritePdf(&report, pages, options.printer, options.output);
    std::printf("%s: %zu page%s\n", options.output.c_str(), pages.size(),
                pages.size() == 1 ? "" : "s");
    return EXIT_DONE;
}

int PrintersCommand() {
    const std::vector<PrinterName> printers = Printers();
    if (printers.empty()) std::fprintf(stderr, "tess: there is no printer on this machine\n");
    for (const PrinterName &printer : printers)
        std::printf("%s %s\n", printer.usual ? "*" : " ", printer.name.c_str());
    return EXIT_DONE;
}
