#include "host/tess/print_command.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/export/report_pages.h"
#include "host/forms/fixed_text.h"
#include "host/print/print_job.h"
#include "host/print/printers.h"
#include "host/run/unattended.h"

int PrintCommand(const PrintOptions &options) {
    const ReportFileHeader header = ReadReportHeader(options.report);
    PrintRequest request{ChosenPrinter(options.printer), options.report, "", options.copies};
    if (*header.ReportName) request.title = FixedText(header.ReportName);
    const Unattended unattended({}, Person::ABSENT);
    ReportReader report(options.report);
    const std::vector<int> pages = PageRange(options.pages, report.PageCount());
    PrintPagesOf(&report, pages, request);
    std::printf("%s: %zu page%s sent to %s\n", options.report.c_str(), pages.size(),
                pages.size() == 1 ? "" : "s", request.printer.c_str());
    return EXIT_DONE;
}
