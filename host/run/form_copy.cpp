#include "host/run/form_copy.h"

#include <cstring>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/forms/fixed_text.h"
#include "host/forms/form_image.h"
#include "host/print/printers.h"

namespace {

std::string PrinterFor(const FormHeader &header, const PaperWish &wish) {
    if (!wish.printer.empty()) return ChosenPrinter(wish.printer);
    const std::string own = FixedText(header.PrinterDevice);
    return ChosenPrinter(HasPrinter(own) ? own : "");
}

// The driver settles the measures that belong to a paper.
void PutPaper(FormHeader *header, const std::string &printer, const PaperWish &wish) {
    PrinterModeRecord &paper = header->PrinterMode;
    PrinterMode mode(printer);
    DEVMODEA *fields = mode.Get();
    fields->dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
    fields->dmOrientation = wish.landscape ? DMORIENT_LANDSCAPE : paper.Orientation;
    fields->dmPaperSize = paper.PaperSize;
    if (!wish.paper.empty()) {
        fields->dmPaperSize = static_cast<short>(PaperNumber(printer, wish.paper));
    } else if (paper.PaperSize == 0) { // a paper without a number is known by its measures
        fields->dmFields |= DM_PAPERLENGTH | DM_PAPERWIDTH;
        fields->dmPaperLength = paper.PaperLength;
        fields->dmPaperWidth = paper.PaperWidth;
    }
    mode.Merge();
    paper.Orientation = fields->dmOrientation;
    paper.PaperSize = fields->dmPaperSize;
    paper.PaperLength = fields->dmPaperLength;
    paper.PaperWidth = fields->dmPaperWidth;
    paper.DefaultSource = fields->dmDefaultSource;
    paper.PrintQuality = fields->dmPrintQuality;
}

// The library finds driver and port by the name alone when the driver differs from its own.
void PutPrinter(FormHeader *header, const std::string &printer) {
    if (printer.size() >= sizeof header->PrinterDevice)
        throw Failure(printer + ": a form can't name a printer of more than " +
                      std::to_string(sizeof header->PrinterDevice - 1) +
                      " characters; give it a shorter name");
    std::strcpy(header->PrinterDevice, printer.c_str());
    *header->PrinterDriver = 0;
    *header->PrinterPort = 0;
}

std::string TemporaryFile() {
    char folder[MAX_PATH] = "";
    char path[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    if (!GetTempFileNameA(folder, "tes", 0, path))
        throw Failure(std::string(folder) +
                      ": no file can be made there: " + SystemMessage(GetLastError()));
    return path;
}

} // namespace

FormCopy::FormCopy(const std::string &form, const PaperWish &wish) {
    std::string bytes = ReadFileBytes(form);
    FormHeader header = ReadFormHeader(form);
    printer_ = PrinterFor(header, wish);
    PutPaper(&header, printer_, wish);
    PutPrinter(&header, printer_);
    std::memcpy(bytes.data(), &header, sizeof header);
    path_ = TemporaryFile();
    try {
        WriteFileBytes(path_, bytes);
    } catch (const Failure &) {
        DeleteFileA(path_.c_str());
        throw;
    }
}

FormCopy::~FormCopy() { DeleteFileA(path_.c_str()); }
