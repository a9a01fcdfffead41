#include "output/page_files.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iterator>

#include "frame/files.h"
#include "frame/owned.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr DWORD DIRECTORY_LIMIT = 150;
constexpr size_t BASE_LENGTH = 8;
constexpr int LETTERS = 26;
constexpr int BASE_TRIES = LETTERS * LETTERS; // two characters between the numbers
constexpr const char *page_endings[] = {".MF", ".MFT", ".MFS", ".MFP"};

// An empty directory becomes the current one in its short form, also in the caller's block.
void FillDirectory(char *directory, size_t size) {
    if (*directory) return;
    char current[DIRECTORY_LIMIT + 1] = "";
    GetCurrentDirectoryA(DIRECTORY_LIMIT, current);
    if (!GetShortPathNameA(current, directory, static_cast<DWORD>(size)))
        CopyText(current, directory, size);
}

void PageDirectory(Session *session, char (&directory)[DIRECTORY_LIMIT + 2]) {
    char *own = session->ViewingFile ? session->ViewBlock.TempDir : session->RunBlock.TempDir;
    FillDirectory(own, sizeof session->RunBlock.TempDir);
    CopyText(own, directory, DIRECTORY_LIMIT + 1);
    const size_t length = std::strlen(directory);
    if (length && directory[length - 1] != '\\') std::strcat(directory, "\\");
}

void BaseName(const Session *session, char (&base)[BASE_LENGTH + 1]) {
    CopyText(session->report.TimeText, base, sizeof base);
    base[2] = base[5] = 'R';
}

template <size_t Size>
void Compose(char (&path)[Size], const char *directory, const char *base, const char *ending) {
    std::snprintf(path, Size, "%s%s%s", directory, base, ending);
}

// Whoever makes the claim file has the name, in this process or another, until it closes the file.
// The system deletes it then, also when the process was killed.
HANDLE Claim(const char *directory, const char *base) {
    char path[MAX_PATH];
    Compose(path, directory, base, ".MFC");
    return MakeNew(path, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
}

// Not that its folder can't be reached: then no other name can be had either.
bool IsTaken(DWORD error) {
    return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS ||
           error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

void ReleaseClaim(PageStoreState *pages) {
    if (pages->NameClaim) CloseHandle(pages->NameClaim);
    pages->NameClaim = nullptr;
}

char Letter(int number) { return "RSTUVWXYZABCDEFGHIJKLMNOPQ"[number % LETTERS]; }

// Two sessions of the same second differ in the characters between the numbers. One that runs alone
// has the usual name.
void ClaimName(PageStoreState *pages, const char *directory, char (&base)[BASE_LENGTH + 1]) {
    for (int number = 0; number < BASE_TRIES; ++number) {
        base[2] = Letter(number);
        base[5] = Letter(number / LETTERS);
        const HANDLE claim = Claim(directory, base);
        if (claim != INVALID_HANDLE_VALUE) {
            pages->NameClaim = claim;
            return;
        }
        if (!IsTaken(GetLastError())) return;
    }
}

// Two digits of a clock, below the limit.
bool IsClockNumber(const char *text, int limit) {
    return IsDigit(text[0]) && IsDigit(text[1]) && (text[0] - '0') * 10 + text[1] - '0' < limit;
}

// Hours, minutes and seconds with a letter between: no date and no number that a person would
// write.
bool IsPageFileName(const char *name) {
    const size_t length = std::strlen(name);
    if (length <= BASE_LENGTH || !IsClockNumber(name, 24) || !IsLetter(name[2]) ||
        !IsClockNumber(name + 3, 60) || !IsLetter(name[5]) || !IsClockNumber(name + 6, 60))
        return false;
    const auto is_ending = [&](const char *ending) {
        return !lstrcmpiA(name + BASE_LENGTH, ending);
    };
    return std::any_of(std::begin(page_endings), std::end(page_endings), is_ending);
}

// A name that can be claimed has no owner any more.
void DeleteOrphan(const char *directory, const char *name) {
    char base[BASE_LENGTH + 1];
    CopyText(name, base, sizeof base);
    const OwnedFile claim(Claim(directory, base));
    char path[MAX_PATH];
    Compose(path, directory, name, "");
    if (claim) DeleteFileA(path);
}

// What killed runs have left.
void DeleteOrphans(const char *directory) {
    char pattern[MAX_PATH];
    Compose(pattern, directory, "*", ".MF*");
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(pattern, &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        if (IsPageFileName(found.cFileName)) DeleteOrphan(directory, found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

void DeleteNamed(const char *path) {
    if (*path) DeleteFileA(path);
}

} // namespace

void MakePageFileNames(Session *session) {
    PageStoreState &pages = session->pages;
    char directory[DIRECTORY_LIMIT + 2];
    char base[BASE_LENGTH + 1];
    PageDirectory(session, directory);
    BaseName(session, base);
    if (!session->ViewingFile) DeleteOrphans(directory); // a viewing is one page's, and many come
    ReleaseClaim(&pages);
    ClaimName(&pages, directory, base);
    Compose(pages.ReportPath, directory, base, ".MF");
    Compose(pages.TransferPath, directory, base, ".MFT");
    Compose(pages.ScreenPagePath, directory, base, ".MFS");
    Compose(pages.PrintPagePath, directory, base, ".MFP");
    if (session->OutputToFile)
        CopyText(pages.OutputPath, pages.ReportPath, sizeof pages.ReportPath);
    else if (session->ViewingFile)
        CopyText(session->ViewBlock.ReportFileName, pages.ReportPath, sizeof pages.ReportPath);
}

void DeletePageFiles(Session *session) {
    PageStoreState &pages = session->pages;
    if (session->OutputToScreen && !session->ViewingFile) DeleteNamed(pages.ReportPath);
    if (session->OutputToFile && !pages.ReportWhole) DeleteNamed(pages.OutputPath);
    for (const char *path : {pages.ScreenPagePath, pages.PrintPagePath, pages.TransferPath})
        DeleteNamed(path);
    ReleaseClaim(&pages);
}

} // namespace tessarine
