#include "host/tess/pdf_command.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/export/report_pages.h"
#include "host/print/pdf_output.h"
#include "host/run/unattended.h"

int PdfCommand(const PdfOptions &options) {
    KeepInput(options.pdf, options.report);
    const std::string printer = PdfPrinter(options.printer);
    const Unattended unattended({}, Person::ABSENT);
    ReportReader report(options.report);
    const std::vector<int> pages = PageRange(options.pages, report.PageCount());
    WritePdf(&report, pages, printer, options.pdf);
    std::printf("%s: %zu page%s\n", options.pdf.c_str(), pages.size(),
                pages.size() == 1 ? "" : "s");
    return EXIT_DONE;
}
