#include "host/print/pdf_output.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "host/cli/failure.h"
#include "host/cli/interrupt.h"
#include "host/data/files.h"
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

bool IsPdf(const std::string &path) {
    try {
        return ReadFileStart(path, 5) == "%PDF-";
    } catch (const Failure &) {
        return false; // the service still writes it
    }
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

void NeedWritable(const std::string &path) { WriteFileBytes(path, ""); }

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
    const std::string beside = path + ".part";
    if (folder.empty()) request.output = beside;
    NeedWritable(beside);
    DeleteFileA(beside.c_str());
    PrintPagesOf(report, pages, request);
    if (folder.empty()) {
        Await(request.printer, [&] { return IsPdf(beside); });
        PutInPlace(beside, path);
        return;
    }
    std::string made;
    Await(request.printer, [&] { return !(made = MadeIn(folder, request.title)).empty(); });
    if (!IsPdf(made)) throw Failure(request.printer + ": what the printer made is no PDF file");
    WriteFileBytes(path, ReadFileBytes(made));
}
