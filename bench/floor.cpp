// bench_floor REPORT OUTPUT: issues the drawing calls of a report's pages again, with no layout at
// all, and stores the pages the same way. Prints seconds and pages.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "tessarine.h"

namespace {

std::vector<std::string> ReadPages(const char *path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    ReportFileHeader header{};
    std::memcpy(&header, bytes.data(), sizeof header);
    std::vector<std::string> pages;
    for (int page = 0; page < header.PageCount; ++page) {
        uint32_t limits[2];
        std::memcpy(limits, bytes.data() + header.PageTableOffset + page * 4, sizeof limits);
        pages.push_back(bytes.substr(limits[0], limits[1] - limits[0]));
    }
    return pages;
}

int CALLBACK Issue(HDC device, HANDLETABLE *table, METARECORD *record, int objects, LPARAM) {
    PlayMetaFileRecord(device, table, record, static_cast<UINT>(objects));
    return 1;
}

// One page: the calls into a recording, the recording to a scratch file, its bytes to the report.
void StorePage(const std::string &page, const std::string &scratch, HANDLE output) {
    const HMETAFILE source = SetMetaFileBitsEx(static_cast<UINT>(page.size()),
                                               reinterpret_cast<const BYTE *>(page.data()));
    const HDC recorder = CreateMetaFileA(nullptr);
    EnumMetaFile(recorder, source, Issue, 0);
    const HMETAFILE recorded = CloseMetaFile(recorder);
    DeleteFileA(scratch.c_str());
    DeleteMetaFile(CopyMetaFileA(recorded, scratch.c_str()));
    DeleteMetaFile(recorded);
    DeleteMetaFile(source);
    const HANDLE input =
        CreateFileA(scratch.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    char buffer[16384];
    DWORD moved = 0;
    while (ReadFile(input, buffer, sizeof buffer, &moved, nullptr) && moved > 0)
        WriteFile(output, buffer, moved, &moved, nullptr);
    CloseHandle(input);
}

} // namespace

int main(int count, char **arguments) {
    if (count != 3) return 2;
    const std::vector<std::string> pages = ReadPages(arguments[1]);
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    const std::string scratch = std::string(folder) + "FLOOR.MFT";
    const HANDLE output =
        CreateFileA(arguments[2], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const Measure measure;
    for (const std::string &page : pages) StorePage(page, scratch, output);
    std::printf("%.3f %zu\n", measure.Seconds(), pages.size());
    CloseHandle(output);
    DeleteFileA(scratch.c_str());
    return 0;
}
