#include "output/page_store.h"

#include <algorithm>

#include "frame/fatal_error.h"
#include "frame/files.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "output/page_files.h"

namespace tessarine {

namespace {

constexpr size_t PAGE_TABLE_BYTES = (MAX_SCR_PAGES + 1) * sizeof(uint32_t);
constexpr DWORD COPY_BUFFER_SIZE = 16384;
constexpr uint32_t FIRST_PAGE_OFFSET = sizeof(ReportFileHeader);

void DropRecorder(PageStoreState *pages) {
    if (!pages->PageRecorder) return;
    DeleteMetaFile(CloseMetaFile(pages->PageRecorder));
    pages->PageRecorder = nullptr;
}

void MoveBytes(Session *session, HANDLE input, HANDLE output, int64_t byteCount) {
    char *buffer = session->pages.CopyBuffer;
    while (byteCount > 0) {
        const auto part = static_cast<DWORD>(std::min<int64_t>(byteCount, COPY_BUFFER_SIZE));
        DWORD moved = 0;
        if (!ReadFile(input, buffer, part, &moved, nullptr) || moved != part)
            FatalError(session, "Error reading the input file(CopyFileData)", CODE_FILE);
        if (!WriteFile(output, buffer, part, &moved, nullptr) || moved != part)
            FatalError(session, "Error writing the output file(CopyFileData a)", CODE_FILE);
        byteCount -= part;
    }
}

// Writes the finished recording to the scratch file and returns how many bytes it has there. A full
// disk isn't always told: the file is short then.
int64_t WriteTransferFile(Session *session, HMETAFILE page) {
    const char *path = session->pages.TransferPath;
    DeleteFileA(path);
    const HMETAFILE on_disk = CopyMetaFileA(page, path);
    const bool copied = on_disk != nullptr;
    if (copied) DeleteMetaFile(on_disk);
    const int64_t length = FileLength(path);
    if (!copied || length != GetMetaFileBitsEx(page, 0, nullptr))
        FatalError(session, "Error Copying Meta File(TransferMetaFile)", CODE_FILE);
    return length;
}

} // namespace

void AllocPageStore(Session *session) {
    PageStoreState &pages = session->pages;
    pages.PageTableMemory = sAlloc(PAGE_TABLE_BYTES);
    pages.PageTable = static_cast<uint32_t *>(LockHandle(pages.PageTableMemory));
    pages.CopyBuffer = static_cast<char *>(OurAlloc(COPY_BUFFER_SIZE));
    if (!pages.PageTable || !pages.CopyBuffer)
        FatalError(session, "Ran Out of Memory (AllocRepMem)", CODE_MEMORY);
    ZeroMemory(pages.PageTable, PAGE_TABLE_BYTES);
}

void ReleasePageStore(Session *session) {
    PageStoreState &pages = session->pages;
    if (pages.PageTable) UnlockHandle(pages.PageTableMemory);
    FreeHandle(pages.PageTableMemory);
    pages.PageTableMemory = nullptr;
    pages.PageTable = nullptr;
    OurFree(pages.CopyBuffer);
    pages.CopyBuffer = nullptr;
    DropRecorder(&pages);
    DeletePageFiles(session);
}

void StartRecorder(Session *session, const char *failure) {
    session->pages.PageRecorder = CreateMetaFileA(nullptr);
    if (!session->pages.PageRecorder) FatalError(session, failure, CODE_FILE);
}

void TransferMetaFile(Session *session) {
    PageStoreState &pages = session->pages;
    const int page_count = session->report.PageCount;
    if (page_count == 1) {
        MakePageFileNames(session);
        pages.PageTable[0] = FIRST_PAGE_OFFSET;
    }
    const HDC recorder = pages.PageRecorder;
    pages.PageRecorder = nullptr;
    Owned<HMETAFILE, DeleteMetaFile> page(CloseMetaFile(recorder));
    if (!page) FatalError(session, "Error Creating Meta File(TransferMetaFile)", CODE_FILE);
    const int64_t length = WriteTransferFile(session, page.Get());
    const uint32_t offset = pages.PageTable[page_count - 1];
    if (offset + length > UINT32_MAX) // no table could tell where the page ends
        FatalError(session, "Error seeking the output file(CopyFileData)", CODE_FILE);
    CopyFileData(session, pages.TransferPath, 0, pages.ReportPath, offset, length);
    if (page_count > MAX_SCR_PAGES)
        FatalError(session, "PageCount exceeding MAX_SCR_PAGES (TransferMetaFile)", CODE_FILE);
    pages.PageTable[page_count] = offset + static_cast<uint32_t>(length);
    StartRecorder(session, "Error creating metafile(TransferMetaFile)");
    if (page_count == 1 && !pages.ShownPage) pages.ShownPage = page.Leave();
}

HMETAFILE ReadMetaFilePage(Session *session, int pageIndex, const char *scratchPath,
                           HMETAFILE oldHandle) {
    const PageStoreState &pages = session->pages;
    if (oldHandle) DeleteMetaFile(oldHandle);
    DeleteFileA(scratchPath);
    if (!pages.PageTable || pageIndex < 0 || pageIndex >= MAX_SCR_PAGES)
        FatalError(session, "Error getting the disk meta file(ReadMetaFilePage)", CODE_FILE);
    const uint32_t start = pages.PageTable[pageIndex];
    const uint32_t end = pages.PageTable[pageIndex + 1];
    CopyFileData(session, pages.ReportPath, start, scratchPath, 0, int64_t{end} - start);
    const HMETAFILE on_disk = GetMetaFileA(scratchPath);
    if (!on_disk)
        FatalError(session, "Error getting the disk meta file(ReadMetaFilePage)", CODE_FILE);
    const HMETAFILE in_memory = CopyMetaFileA(on_disk, nullptr);
    if (!in_memory) return on_disk; // too large for memory, and still to be shown
    DeleteMetaFile(on_disk);
    return in_memory;
}

HANDLE OpenOutput(Session *session, const char *path, const char *standing, const char *made) {
    const bool stands = FileStands(path);
    const HANDLE file =
        OpenShared(path, GENERIC_READ | GENERIC_WRITE, stands ? OPEN_EXISTING : CREATE_ALWAYS);
    if (file == INVALID_HANDLE_VALUE) FatalError(session, stands ? standing : made, CODE_FILE);
    return file;
}

void CopyFileData(Session *session, const char *inputPath, int64_t inputOffset,
                  const char *outputPath, int64_t outputOffset, int64_t byteCount) {
    const OwnedFile input(OpenToRead(inputPath));
    if (!input) FatalError(session, "Error opening the input file(CopyFileData)", CODE_FILE);
    if (!SeekTo(input.Get(), inputOffset))
        FatalError(session, "Error seeking the input file(CopyFileData)", CODE_FILE);
    const OwnedFile output(OpenOutput(session, outputPath,
                                      "Error opening the output file(CopyFileData)",
                                      "Error opening the output file(CopyFileData A)"));
    if (!SeekTo(output.Get(), outputOffset))
        FatalError(session, "Error seeking the output file(CopyFileData)", CODE_FILE);
    MoveBytes(session, input.Get(), output.Get(), byteCount);
}

} // namespace tessarine
