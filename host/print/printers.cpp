#include "host/print/printers.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <winspool.h>

#include "host/cli/failure.h"
#include "host/data/files.h"

namespace {

constexpr size_t PAPER_NAME = 64; // characters that a driver gives to a paper's name

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

HGLOBAL MovableCopy(const std::vector<char> &bytes) {
    const HGLOBAL block = GlobalAlloc(GHND, bytes.size());
    if (!block) throw Failure("there is no memory for the printer's settings");
    std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    return block;
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

std::string ChosenPrinter(const std::string &wanted) {
    const std::vector<PrinterName> printers = Printers();
    if (printers.empty())
        throw Failure("there is no printer on this machine; add one, then run this again");
    std::string known;
    for (const PrinterName &printer : printers) {
        if (wanted.empty() ? printer.usual : !lstrcmpiA(printer.name.c_str(), wanted.c_str()))
            return printer.name;
        known += (known.empty() ? "" : ", ") + printer.name;
    }
    if (wanted.empty())
        throw Failure("there is no default printer; name one with --printer: " + known);
    throw Failure("--printer " + wanted + ": there is no such printer; known are: " + known,
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

HGLOBAL PrinterMode::Copy() const { return MovableCopy(bytes_); }

HGLOBAL DeviceNames(const std::string &printer) {
    char entry[200] = "";
    GetProfileStringA("devices", printer.c_str(), "winspool,", entry, sizeof entry);
    const std::string text = entry;
    const size_t comma = std::min(text.find(','), text.size());
    const std::string driver = text.substr(0, comma);
    const std::string port = comma < text.size() ? text.substr(comma + 1) : "";
    DEVNAMES names{};
    names.wDriverOffset = sizeof names;
    names.wDeviceOffset = static_cast<WORD>(names.wDriverOffset + driver.size() + 1);
    names.wOutputOffset = static_cast<WORD>(names.wDeviceOffset + printer.size() + 1);
    const auto *start = reinterpret_cast<const char *>(&names);
    std::vector<char> bytes(start, start + sizeof names);
    for (const std::string &part : {driver, printer, port})
        bytes.insert(bytes.end(), part.c_str(), part.c_str() + part.size() + 1);
    return MovableCopy(bytes);
}
