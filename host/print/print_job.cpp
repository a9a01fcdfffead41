#include "host/print/print_job.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/base/interrupt.h"
#include "host/base/progress.h"
#include "host/export/report_pages.h"
#include "host/print/printers.h"
#include "tessarine.h"

namespace {

class PrintJob {
public:
    PrintJob(const PrintRequest &request, PrinterMode *mode) : name_(request.printer) {
        device_ = CreateDCA("WINSPOOL", name_.c_str(), nullptr, mode->Get());
        if (!device_) throw Failure(name_ + ": the printer can't be used");
        DOCINFOA document{};
        document.cbSize = sizeof document;
        document.lpszDocName = request.title.c_str();
        document.lpszOutput = request.output.empty() ? nullptr : request.output.c_str();
        if (StartDocA(device_, &document) > 0) return;
        const DWORD error = GetLastError();
        DeleteDC(device_);
        throw Failure(name_ + ": the print job can't be started: " + SystemMessage(error));
    }
    ~PrintJob() {
        if (!done_) AbortDoc(device_);
        DeleteDC(device_);
    }
    PrintJob(const PrintJob &) = delete;
    PrintJob &operator=(const PrintJob &) = delete;

    void Page(HMETAFILE page) {
        Check(StartPage(device_));
        SetMapMode(device_, MM_ANISOTROPIC); // the start of a page resets the device
        SetWindowExtEx(device_, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
        SetViewportExtEx(device_, GetDeviceCaps(device_, LOGPIXELSX),
                         GetDeviceCaps(device_, LOGPIXELSY), nullptr);
        PlayMetaFile(device_, page);
        Check(EndPage(device_));
    }

    void Finish() {
        Check(EndDoc(device_));
        done_ = true;
    }

private:
    void Check(int code) const {
        if (code <= 0)
            throw Failure(name_ + ": the printer refused a page: " + SystemMessage(GetLastError()));
    }

    std::string name_;
    HDC device_;
    bool done_ = false;
};

PrinterMode ModeFor(const ReportFileHeader &report, const PrintRequest &request) {
    PrinterMode mode(request.printer);
    DEVMODEA *fields = mode.Get();
    fields->dmFields |= DM_ORIENTATION | DM_PAPERSIZE | DM_COPIES;
    fields->dmOrientation = static_cast<short>(report.Orientation);
    fields->dmPaperSize = static_cast<short>(report.PaperSize);
    fields->dmCopies = static_cast<short>(request.copies);
    if (report.PaperSize == 0) { // a paper without a number is known by its measures
        fields->dmFields |= DM_PAPERLENGTH | DM_PAPERWIDTH;
        fields->dmPaperLength = static_cast<short>(report.PaperLength);
        fields->dmPaperWidth = static_cast<short>(report.PaperWidthTenths);
    }
    mode.Merge();
    return mode;
}

} // namespace

void PrintPagesOf(ReportReader *report, const std::vector<int> &pages,
                  const PrintRequest &request) {
    PrinterMode mode = ModeFor(ReadReportHeader(report->Path()), request);
    WatchInterrupt();
    PrintJob job(request, &mode);
    const Progress progress(pages.size(), "pages", 1);
    size_t done = 0;
    for (const int page : pages) {
        if (StopWanted()) throw Failure("stopped; the print job was dropped", EXIT_CANCELLED);
        job.Page(report->Page(page));
        progress.Show(++done);
    }
    job.Finish();
}
