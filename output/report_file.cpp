#include "output/report_file.h"

#include <cstdio>
#include <cstring>

#include "form/file_dialog.h"
#include "form/records.h"
#include "frame/fatal_error.h"
#include "frame/files.h"
#include "frame/message_box.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/page_store.h"

namespace tessarine {

namespace {

constexpr uint32_t HEADER_SIZE = sizeof(ReportFileHeader);

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

// As far as the page table's own entries reach, beyond what a signed number tells.
uint32_t TablePlace(const ReportFileHeader &header) {
    return static_cast<uint32_t>(header.PageTableOffset);
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
    header.PageCount = session->report.PageCount;
    header.PageTableOffset =
        static_cast<int32_t>(session->pages.PageTable[session->report.PageCount]);
    header.RecordCount = session->report.RecordCount;
    header.PageWidth = printer.UsableWidth;
    header.PageHeight = printer.UsableHeight;
    header.PageBottom = static_cast<float>(session->report.PageBottomUnits / 250.0);
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

// The file dialog has asked about the name as it was typed.
bool MayReplace(const Session *session, const char *path) {
    char text[MAX_PATH + 60];
    std::snprintf(text, sizeof text, "%s already exists.\nDo you want to replace it?", path);
    const HWND owner = session->Window ? session->Window : session->ParentWindow;
    const int answer =
        ShowBox(owner, text, "Replace File", MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2);
    RaisePending(session);
    return answer == IDYES;
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
    return table[count] <= TablePlace(session->pages.Header);
}

} // namespace

int32_t FinishedPages(const Session *session) {
    return session->report.RunPhase == PHASE_FINISHED ? session->report.PageCount
                                                      : session->report.PageCount - 1;
}

const char *ReportFileFilter() {
    return frc_format ? "Formatted Report(*.FRC)|*.FRC|" : "Formatted Report(*.FR)|*.FR|";
}

bool AskReportName(Session *session, char *name, size_t size, const char *title) {
    do {
        if (!AskFileName(session, name, ReportFileFilter(), title, true) || !*name) return false;
        if (HasFileEnding(name)) return true;
        AddFileEnding(name, frc_format ? ".FRC" : ".FR", size);
    } while (FileStands(name) && !MayReplace(session, name));
    return true;
}

int WriteEmptyHeader(Session *, const char *path) {
    DeleteFileA(path);
    OwnedFile file(OpenShared(path, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS));
    if (!file) return Refuse("Error opening the output file(WriteEmptyHeader)");
    const ReportFileHeader empty{};
    if (WriteAll(file.Get(), &empty, sizeof empty)) return 1;
    CloseHandle(file.Leave());
    DeleteFileA(path);
    return Refuse("Error writing to the output file(WriteEmptyHeader)");
}

void WriteOutputHdrFtr(Session *session, const char *path) {
    const OwnedFile file(OpenOutput(session, path,
                                    "Error opening the output file(WriteOutputHdrFtr)",
                                    "Error opening the output file(WriteOutputHdrFtr A)"));
    const ReportFileHeader header = MakeHeader(session);
    if (!SeekTo(file.Get(), 0))
        FatalError(session, "Error seeking the output file(WriteOutputHdrFtr)", CODE_FILE);
    if (!WriteAll(file.Get(), &header, sizeof header))
        FatalError(session, "Error writing the output file(WriteOutputHdrFtr)", CODE_FILE);
    if (!SeekTo(file.Get(), TablePlace(header)))
        FatalError(session, "Error seeking the output file(WriteOutputHdrFtr a)", CODE_FILE);
    if (!WriteAll(file.Get(), session->pages.PageTable, TableBytes(header.PageCount)))
        FatalError(session, "Error writing the output file(WriteOutputHdrFtr a)", CODE_FILE);
    session->pages.ReportWhole = 1;
}

int ReadReportHeader(Session *session, const char *path) {
    const OwnedFile file(OpenShared(path, GENERIC_READ, OPEN_EXISTING));
    if (!file) return Refuse("Error opening the report file!");
    ReportFileHeader *header = &session->pages.Header;
    if (!ReadAll(file.Get(), header, sizeof *header))
        return Refuse("Error reading the report header!");
    return header->Magic == SIGNATURE_REPORT ? 1 : Refuse("Invalid Report File!");
}

int ReadPageTable(Session *session, const char *path) {
    const OwnedFile file(OpenShared(path, GENERIC_READ, OPEN_EXISTING));
    if (!file) return Refuse("Error opening the report file(ReadPageTable)");
    const ReportFileHeader &header = session->pages.Header;
    if (!SeekTo(file.Get(), TablePlace(header)))
        return Refuse("Error positioning at the page table(ReadPageTable)");
    const bool fits = header.PageCount >= 0 && header.PageCount <= MAX_SCR_PAGES;
    session->report.PageCount = fits ? header.PageCount : 0;
    if (!fits || !ReadAll(file.Get(), session->pages.PageTable, TableBytes(header.PageCount)))
        return Refuse("Error reading the page table(ReadPageTable)");
    return PagesLieInFile(session) ? 1 : Refuse("Invalid Report File!");
}

} // namespace tessarine
