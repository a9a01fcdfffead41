#include "host/print/pdf_output.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "host/base/failure.h"
#include "host/base/files.h"
#include "host/base/interrupt.h"
#include "host/base/part_file.h"
#include "host/print/print_job.h"
#include "host/print/printers.h"

namespace {

constexpr DWORD LONGEST_JOB = 120'000; // milliseconds
constexpr DWORD GLANCE = 50;

// The folder in which the print service puts its files, "" when it takes a path.
std::string JobFolder() {
    const char *folder = std::getenv("TESSARINE_PRINT_DIR");
    if (!folder || !*folder) return "";
    const std::string path = folder;
    return path[0] == '/' ? "Z:" + path : path;
}

std::string Unheard() {
    return "tess-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(GetTickCount());
}

std::string MadeIn(const std::string &folder, const std::string &title) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA((folder + "\\*-" + title + ".pdf").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return "";
    FindClose(search);
    return folder + "\\" + found.cFileName;
}

// False while the service still writes it. Throws Failure for a file of another kind.
bool IsWholePdf(const std::string &path, const std::string &printer) {
    constexpr size_t TRAILER = 1024; // bytes that may stand behind the mark of the end
    std::string bytes;
    try {
        bytes = ReadFileBytes(path);
    } catch (const Failure &) {
        return false;
    }
    if (bytes.size() < 5) return false;
    if (bytes.rfind("%PDF-", 0) != 0)
        throw Failure(printer + ": what the printer made is no PDF file; name another with "
                                "--printer");
    return bytes.rfind("%%EOF") != bytes.npos && bytes.size() - bytes.rfind("%%EOF") <= TRAILER;
}

// Jobs end later than their last page.
template <typename Condition> void Await(const std::string &printer, Condition condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (StopWanted()) throw Failure("stopped; no PDF was written", EXIT_CANCELLED);
        if (GetTickCount() - start > LONGEST_JOB)
            throw Failure(printer + ": the printer made no PDF file within two minutes; look at "
                                    "its queue, or name another with --printer");
        Sleep(GLANCE);
    }
}

} // namespace

std::string PdfPrinter(const std::string &wanted) {
    if (!wanted.empty()) return ChosenPrinter(wanted);
    for (const PrinterName &printer : Printers()) {
        std::string name = printer.name;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        if (name.find("PDF") != name.npos) return printer.name;
    }
    throw Failure("there is no printer that makes PDF files; add one whose name holds PDF, or name "
                  "it with --printer");
}

void WritePdf(ReportReader *report, const std::vector<int> &pages, const std::string &printer,
              const std::string &path) {
    PrintRequest request{printer, Unheard(), "", 1};
    const std::string folder = JobFolder();
    const PartFile part(path); // what can't be written is told before anything is printed
    if (folder.empty()) request.output = part.Path();
    PrintPagesOf(report, pages, request);
    if (folder.empty()) {
        Await(printer, [&] { return IsWholePdf(part.Path(), printer); });
        part.PutInPlace();
        return;
    }
    std::string made;
    Await(printer, [&] {
        made = MadeIn(folder, request.title);
        return !made.empty() && IsWholePdf(made, printer);
    });
    WriteFileBytes(path, ReadFileBytes(made));
}
