// bench_preview FORM RECORDS: a preview of made-up records is turned page by page to its end and
// back. Prints pages, milliseconds a turn, milliseconds that the platform takes to play such a page
// on the same window, and by how many kilobytes the memory grew from the first tenth to the end.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/host.h"
#include "bench/measure.h"

namespace {

enum { PAGE_UP = 600, PAGE_DOWN = 601, FIT = 696 };

int Run(RepParams *run, int records) {
    Check(RepInit(run, 0, nullptr, nullptr));
    FieldRecord *id = Row(*run, "ID");
    FieldRecord *name = Row(*run, "NAME");
    for (int record = 0; record < records; ++record) {
        id->LongValue = record;
        std::snprintf(name->TextValue, 30, "Customer %d", record * 7919 % 100003);
        Check(RepRec(run->SessionId, 0, 0));
    }
    int32_t pages = 0;
    Check(RepExit(run->SessionId, 0, &pages));
    return pages;
}

HWND PreviewWindow() { return FindWindowA("RepClass32", nullptr); }

double Turn(HWND window, int command, int times) {
    const Measure measure;
    for (int turn = 0; turn < times; ++turn)
        SendMessageA(window, WM_COMMAND, static_cast<WPARAM>(command), 0);
    return measure.Seconds();
}

// The platform's own play of every page, fitted into the same window.
double Play(Session *session, HWND window, int pages, const char *folder) {
    char scratch[MAX_PATH];
    std::snprintf(scratch, sizeof scratch, "%sBENCH.MFB", folder);
    RECT client{};
    GetClientRect(window, &client);
    const HDC device = GetDC(window);
    HMETAFILE page = nullptr;
    double seconds = 0;
    for (int index = 0; index < pages; ++index) {
        page = ReadMetaFilePage(session, index, scratch, page);
        const Measure measure;
        const int state = SaveDC(device);
        SetMapMode(device, MM_ANISOTROPIC);
        SetWindowOrgEx(device, 0, 0, nullptr);
        SetWindowExtEx(device, 2750, 2750, nullptr); // 11 inches
        SetViewportExtEx(device, client.bottom, client.bottom, nullptr);
        PlayMetaFile(device, page);
        RestoreDC(device, state);
        seconds += measure.Seconds();
    }
    DeleteMetaFile(page);
    DeleteFileA(scratch);
    ReleaseDC(window, device);
    return seconds;
}

} // namespace

int main(int count, char **arguments) {
    if (count != 3) return 2;
    RepParams run{};
    std::strncpy(run.FormFile, arguments[1], sizeof run.FormFile - 1);
    GetTempPathA(150, run.TempDir);
    run.Device = 'S';
    run.WindowStyle = WS_OVERLAPPEDWINDOW;
    run.WindowWidth = 800;
    run.WindowHeight = 900;
    const int pages = Run(&run, std::atoi(arguments[2]));
    const HWND window = PreviewWindow();
    SendMessageA(window, WM_COMMAND, FIT, 0);
    double seconds = Turn(window, PAGE_DOWN, pages / 10);
    const unsigned long memory = PeakKilobytes();
    seconds += Turn(window, PAGE_DOWN, pages - 1 - pages / 10);
    seconds += Turn(window, PAGE_UP, pages - 1);
    const unsigned long growth = PeakKilobytes() - memory;
    const int played = pages < 500 ? pages : 500;
    const double play =
        Play(GetSessionPointer(nullptr, run.SessionId), window, played, run.TempDir);
    std::printf("%d %.3f %.3f %lu\n", pages, seconds * 1000 / (2 * (pages - 1)),
                play * 1000 / played, growth);
    SendMessageA(window, WM_CLOSE, 0, 0);
    return 0;
}
