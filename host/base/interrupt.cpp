#include "host/base/interrupt.h"

#include <atomic>

#include <windows.h>

namespace {

std::atomic<bool> stop_wanted = false;
HANDLE stop_event = nullptr; // wakes one that waits; the flag is quicker to look at

BOOL WINAPI OnInterrupt(DWORD) {
    stop_wanted = true;
    SetEvent(stop_event);
    return TRUE;
}

} // namespace

void WatchInterrupt() {
    if (stop_event) return;
    stop_event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(OnInterrupt, TRUE);
}

bool StopWanted() { return stop_wanted; }

bool AwaitMessage() {
    return MsgWaitForMultipleObjectsEx(1, &stop_event, INFINITE, QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0;
}
