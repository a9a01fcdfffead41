#include "host/print/printers.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <winspool.h>

#include "host/base/failure.h"
#include "host/base/files.h"

namespace {

constexpr size_t PAPER_NAME = 64; // characters that a driver gives to a paper's name

constexpr const char *NO_PRINTER =
    "there is no printer on this machine, and pages are laid out for one; add a printer in the "
    "system's settings, then run this again";

struct OpenedPrinter {
    HANDLE handle = nullptr;
    explicit OpenedPrinter(const std::string &name) {
        if (!OpenPrinterA(const_cast<char *>(name.c_str()), &handle, nullptr))
            throw Failure(name + ": the printer can't be opened: " + SystemMessage(GetLastError()));
    }
    ~OpenedPrinter() { ClosePrinter(handle); }
};

std::string UsualPrinter() {
    char name[260] = "";
    DWORD size = sizeof name;
    return GetDefaultPrinterA(name, &size) ? name : "";
}

std::string Known(const std::vector<PrinterName> &printers) {
    std::string known;
    for (const PrinterName &printer : printers) known += (known.empty() ? "" : ", ") + printer.name;
    return known;
}

} // namespace

std::vector<PrinterName> Printers() {
    constexpr DWORD kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    DWORD size = 0;
    DWORD count = 0;
    EnumPrintersA(kinds, nullptr, 4, nullptr, 0, &size, &count);
    std::vector<PRINTER_INFO_4A> rows(size / sizeof(PRINTER_INFO_4A) + 1);
    if (!EnumPrintersA(kinds, nullptr, 4, reinterpret_cast<BYTE *>(rows.data()), size, &size,
                       &count))
        return {};
    const std::string usual = UsualPrinter();
    std::vector<PrinterName> printers;
    for (DWORD row = 0; row < count; ++row)
        printers.push_back({rows[row].pPrinterName, usual == rows[row].pPrinterName});
    return printers;
}

bool HasPrinter(const std::string &name) {
    for (const PrinterName &printer : Printers())
        if (!lstrcmpiA(printer.name.c_str(), name.c_str())) return true;
    return false;
}

void NeedUsualPrinter() {
    if (!UsualPrinter().empty()) return;
    const std::vector<PrinterName> printers = Printers();
    if (printers.empty()) throw Failure(NO_PRINTER);
    throw Failure("there is no default printer, and pages are laid out for one; make one of these "
                  "the default in the system's settings: " +
                  Known(printers));
}

std::string ChosenPrinter(const std::string &wanted) {
    const std::vector<PrinterName> printers = Printers();
    if (printers.empty()) throw Failure(NO_PRINTER);
    for (const PrinterName &printer : printers)
        if (wanted.empty() ? printer.usual : !lstrcmpiA(printer.name.c_str(), wanted.c_str()))
            return printer.name;
    if (wanted.empty())
        throw Failure("there is no default printer; name one with --printer: " + Known(printers));
    throw Failure("--printer " + wanted +
                      ": there is no such printer; known are: " + Known(printers),
                  EXIT_USAGE);
}

int PaperNumber(const std::string &printer, const std::string &paper) {
    const int count = DeviceCapabilitiesA(printer.c_str(), nullptr, DC_PAPERS, nullptr, nullptr);
    std::vector<WORD> numbers(static_cast<size_t>(std::max(count, 0)));
    std::vector<char> names(numbers.size() * PAPER_NAME + 1);
    if (count > 0) {
        DeviceCapabilitiesA(printer.c_str(), nullptr, DC_PAPERS,
                            reinterpret_cast<char *>(numbers.data()), nullptr);
        DeviceCapabilitiesA(printer.c_str(), nullptr, DC_PAPERNAMES, names.data(), nullptr);
    }
    std::string known;
    for (size_t row = 0; row < numbers.size(); ++row) {
        const char *start = names.data() + row * PAPER_NAME;
        const std::string name(start, strnlen(start, PAPER_NAME));
        if (!lstrcmpiA(name.c_str(), paper.c_str())) return numbers[row];
        known += (known.empty() ? "" : ", ") + name;
    }
    throw Failure("--paper " + paper + ": " + printer + " has no such paper; known are: " + known,
                  EXIT_USAGE);
}

PrinterMode::PrinterMode(std::string printer) : printer_(std::move(printer)) {
    const OpenedPrinter opened(printer_);
    char *name = printer_.data();
    const LONG size = DocumentPropertiesA(nullptr, opened.handle, name, nullptr, nullptr, 0);
    bytes_.resize(static_cast<size_t>(std::max<LONG>(size, sizeof(DEVMODEA))));
    if (size <= 0 ||
        DocumentPropertiesA(nullptr, opened.handle, name, Get(), nullptr, DM_OUT_BUFFER) < 0)
        throw Failure(printer_ + ": the printer doesn't tell its settings");
}

void PrinterMode::Merge() {
    const OpenedPrinter opened(printer_);
    DocumentPropertiesA(nullptr, opened.handle, printer_.data(), Get(), Get(),
                        DM_IN_BUFFER | DM_OUT_BUFFER);
}
