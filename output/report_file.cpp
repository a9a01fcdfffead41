#include "output/report_file.h"

#include <cstring>

#include "form/records.h"
#include "frame/fatal_error.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr uint32_t HEADER_SIZE = sizeof(ReportFileHeader);

HANDLE Open(const char *path, DWORD access, DWORD disposition) {
    return CreateFileA(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool Transferred(BOOL done, DWORD moved, DWORD size) { return done && moved == size; }

bool ReadAll(HANDLE file, void *memory, DWORD size) {
    DWORD moved = 0;
    const BOOL done = ReadFile(file, memory, size, &moved, nullptr);
    return Transferred(done, moved, size);
}

bool WriteAll(HANDLE file, const void *memory, DWORD size) {
    DWORD moved = 0;
    const BOOL done = WriteFile(file, memory, size, &moved, nullptr);
    return Transferred(done, moved, size);
}

bool SeekTo(HANDLE file, int64_t offset) {
    LARGE_INTEGER place;
    place.QuadPart = offset;
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN);
}

DWORD TableBytes(int32_t pageCount) {
    return (static_cast<DWORD>(pageCount) + 1) * sizeof(uint32_t);
}

void CopyFormWords(const FormHeader &form, ReportFileHeader *header) {
    CopyText(form.ReportName, header->ReportName, sizeof header->ReportName);
    header->HostWord = form.HostWord;
    // The form's fields may be filled to the last byte.
    const auto copy_cut = [](const auto &from, auto &to) {
        std::memcpy(to, from, sizeof to);
        to[sizeof to - 1] = 0;
    };
    copy_cut(form.HostName1, header->HostName1);
    copy_cut(form.HostName2, header->HostName2);
    copy_cut(form.HostComment, header->HostComment);
    header->HostShort = form.HostShort;
    header->LabelType = form.LabelType;
    header->LabelGeometry = form.LabelGeometry;
}

ReportFileHeader MakeHeader(const Session *session) {
    ReportFileHeader header{};
    const PrinterState &printer = session->printer;
    const DEVMODEA &mode = *printer.DevMode;
    header.Magic = SIGNATURE_REPORT;
    header.PageCount = session->run.PageCount;
    header.PageTableOffset = static_cast<int32_t>(session->pages.PageTable[session->run.PageCount]);
    header.RecordCount = session->run.RecordCount;
    header.PageWidth = printer.UsableWidth;
    header.PageHeight = printer.UsableHeight;
    header.PageBottom = static_cast<float>(session->run.PageBottomUnits / 250.0);
    header.PaperWidth = printer.PaperWidth;
    header.PaperHeight = printer.PaperHeight;
    header.Orientation = mode.dmOrientation;
    header.PaperSize = mode.dmPaperSize;
    header.PaperLength = mode.dmPaperLength;
    header.PaperWidthTenths = mode.dmPaperWidth;
    header.PrintQuality = mode.dmPrintQuality;
    CopyFormWords(session->form.Header, &header);
    return header;
}

HANDLE OpenFinishedFile(Session *session, const char *path) {
    const bool stands = GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
    const HANDLE file =
        Open(path, GENERIC_READ | GENERIC_WRITE, stands ? OPEN_EXISTING : CREATE_ALWAYS);
    if (file == INVALID_HANDLE_VALUE)
        FatalError(session,
                   stands ? "Error opening the output file(WriteOutputHdrFtr)"
                          : "Error opening the output file(WriteOutputHdrFtr A)",
                   CODE_FILE);
    return file;
}

int Refuse(const char *text) {
    ShowBox(nullptr, text);
    return 0;
}

// Pages lie between the header and the table, each behind the other.
bool PagesLieInFile(const Session *session) {
    const uint32_t *table = session->pages.PageTable;
    const int32_t count = session->pages.Header.PageCount;
    if (table[0] < HEADER_SIZE) return false;
    for (int32_t page = 0; page < count; ++page)
        if (table[page + 1] < table[page]) return false;
    return table[count] <= static_cast<uint32_t>(session->pages.Header.PageTableOffset);
}

} // namespace

int32_t FinishedPages(const Session *session) {
    const RunState &run = session->run;
    return run.RunPhase == PHASE_FINISHED ? run.PageCount : run.PageCount - 1;
}

const char *ReportFileFilter() {
    return frc_format ? "Formatted Report(*.FRC)|*.FRC|" : "Formatted Report(*.FR)|*.FR|";
}

const char *ReportFileEnding() { return frc_format ? ".FRC" : ".FR"; }

int WriteEmptyHeader(Session *, const char *path) {
    DeleteFileA(path);
    const OwnedFile file(Open(path, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS));
    if (!file) return Refuse("Error opening the output file(WriteEmptyHeader)");
    const ReportFileHeader empty{};
    if (!WriteAll(file.Get(), &empty, sizeof empty))
        return Refuse("Error writing to the output file(WriteEmptyHeader)");
    return 1;
}

void WriteOutputHdrFtr(Session *session, const char *path) {
    const OwnedFile file(OpenFinishedFile(session, path));
    const ReportFileHeader header = MakeHeader(session);
    if (!SeekTo(file.Get(), 0))
        FatalError(session, "Error seeking the output file(WriteOutputHdrFtr)", CODE_FILE);
    if (!WriteAll(file.Get(), &header, sizeof header))
        FatalError(session, "Error writing the output file(WriteOutputHdrFtr)", CODE_FILE);
    if (!SeekTo(file.Get(), header.PageTableOffset))
        FatalError(session, "Error seeking the output file(WriteOutputHdrFtr a)", CODE_FILE);
    if (!WriteAll(file.Get(), session->pages.PageTable, TableBytes(header.PageCount)))
        FatalError(session, "Error writing the output file(WriteOutputHdrFtr a)", CODE_FILE);
}

int ReadReportHeader(Session *session, const char *path) {
    const OwnedFile file(Open(path, GENERIC_READ, OPEN_EXISTING));
    if (!file) return Refuse("Error opening the report file!");
    ReportFileHeader *header = &session->pages.Header;
    if (!ReadAll(file.Get(), header, sizeof *header))
        return Refuse("Error reading the report header!");
    return header->Magic == SIGNATURE_REPORT ? 1 : Refuse("Invalid Report File!");
}

int ReadPageTable(Session *session, const char *path) {
    const OwnedFile file(Open(path, GENERIC_READ, OPEN_EXISTING));
    if (!file) return Refuse("Error opening the report file(ReadPageTable)");
    const ReportFileHeader &header = session->pages.Header;
    if (!SeekTo(file.Get(), header.PageTableOffset))
        return Refuse("Error positioning at the page table(ReadPageTable)");
    const bool fits = header.PageCount >= 0 && header.PageCount <= MAX_SCR_PAGES;
    session->run.PageCount = fits ? header.PageCount : 0;
    if (!fits || !ReadAll(file.Get(), session->pages.PageTable, TableBytes(header.PageCount)))
        return Refuse("Error reading the page table(ReadPageTable)");
    return PagesLieInFile(session) ? 1 : Refuse("Invalid Report File!");
}

} // namespace tessarine
