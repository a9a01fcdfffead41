#include "output/page_files.h"

#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "frame/clock.h"
#include "frame/text.h"
#include "output/page_store.h"

namespace tessarine {

namespace {

constexpr DWORD DIRECTORY_LIMIT = 150;
constexpr size_t BASE_LENGTH = 8;
constexpr int BASE_TRIES = 1296; // two characters of 36 letters

// An empty directory becomes the current one in its short form, also in the caller's block.
void FillDirectory(char *directory, size_t size) {
    if (*directory) return;
    char current[DIRECTORY_LIMIT + 1] = "";
    GetCurrentDirectoryA(DIRECTORY_LIMIT, current);
    if (!GetShortPathNameA(current, directory, static_cast<DWORD>(size)))
        CopyText(current, directory, size);
}

void PageDirectory(Session *session, char (&directory)[DIRECTORY_LIMIT + 2]) {
    char *own = session->run.ViewingFile ? session->ViewBlock.TempDir : session->RunBlock.TempDir;
    FillDirectory(own, sizeof session->RunBlock.TempDir);
    CopyText(own, directory, DIRECTORY_LIMIT + 1);
    const size_t length = std::strlen(directory);
    if (length && directory[length - 1] != '\\') std::strcat(directory, "\\");
}

void BaseName(const Session *session, char (&base)[BASE_LENGTH + 1]) {
    CopyText(session->run.TimeText, base, sizeof base);
    base[2] = base[5] = 'R';
}

// The transfer file is the claim on a name: whoever makes it has the name, in this process or
// another. It is remade with each page, so a report file of the name says as well that it is
// taken. Two sessions of the same second differ in the characters between the numbers.
bool Claim(const char *path, const char *reportPath) {
    if (GetFileAttributesA(reportPath) != INVALID_FILE_ATTRIBUTES) {
        SetLastError(ERROR_FILE_EXISTS);
        return false;
    }
    const HANDLE file =
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

char Letter(int number) { return "RSTUVWXYZABCDEFGHIJKLMNOPQ0123456789"[number % 36]; }

template <size_t Size>
void Compose(char (&path)[Size], const char *directory, const char *base, const char *ending) {
    std::snprintf(path, Size, "%s%s%s", directory, base, ending);
}

} // namespace

void MakePageFileNames(Session *session) {
    PageStoreState &pages = session->pages;
    char directory[DIRECTORY_LIMIT + 2];
    char base[BASE_LENGTH + 1];
    PageDirectory(session, directory);
    BaseName(session, base);
    for (int number = 0; number < BASE_TRIES; ++number) {
        base[2] = Letter(number);
        base[5] = Letter(number / 36);
        Compose(pages.TransferPath, directory, base, ".MFT");
        Compose(pages.ReportPath, directory, base, ".MF");
        if (Claim(pages.TransferPath, pages.ReportPath)) break;
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_EXISTS && error != ERROR_SHARING_VIOLATION) break;
    }
    Compose(pages.ScreenPagePath, directory, base, ".MFS");
    Compose(pages.PrintPagePath, directory, base, ".MFP");
    if (session->run.OutputToFile)
        CopyText(pages.OutputPath, pages.ReportPath, sizeof pages.ReportPath);
    else if (session->run.ViewingFile)
        CopyText(session->ViewBlock.ReportFileName, pages.ReportPath, sizeof pages.ReportPath);
}

void DeletePageFiles(Session *session) {
    const PageStoreState &pages = session->pages;
    if (session->run.OutputToScreen && !session->run.ViewingFile && *pages.ReportPath)
        DeleteFileA(pages.ReportPath);
    for (const char *path : {pages.ScreenPagePath, pages.PrintPagePath, pages.TransferPath})
        if (*path) DeleteFileA(path);
}

} // namespace tessarine
