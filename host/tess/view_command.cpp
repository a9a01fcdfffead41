#include "host/tess/view_command.h"

#include <windows.h>

#include "host/base/failure.h"
#include "host/view/viewer.h"

namespace {

// Started from a window, the program has a console of its own, which would only stand about.
bool StartedFromWindow() {
    DWORD processes[2];
    return GetConsoleProcessList(processes, 2) == 1;
}

} // namespace

int ViewCommand(const std::string &report) {
    SetProcessDPIAware();
    const bool from_window = StartedFromWindow();
    if (from_window) FreeConsole();
    try {
        Viewer(report).Run();
    } catch (const Failure &failure) {
        if (from_window)
            MessageBoxA(nullptr, failure.what(), "View a Report", MB_OK | MB_ICONWARNING);
        throw;
    }
    return EXIT_DONE;
}
