#include "host/cli/interrupt.h"

#include <atomic>

#include <windows.h>

namespace {

std::atomic<bool> stop_wanted = false;

BOOL WINAPI OnInterrupt(DWORD) {
    stop_wanted = true;
    return TRUE;
}

} // namespace

void WatchInterrupt() { SetConsoleCtrlHandler(OnInterrupt, TRUE); }

bool StopWanted() { return stop_wanted; }
