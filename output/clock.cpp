#include "output/clock.h"

#include <cstdio>

namespace tessarine {

void ReadLocalClock(Session *session) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    session->report.RunDate = now.wYear * 10000 + now.wMonth * 100 + now.wDay;
    std::snprintf(session->report.TimeText, sizeof session->report.TimeText, "%02d:%02d:%02d",
                  now.wHour % 100, now.wMinute % 100, now.wSecond % 100);
}

} // namespace tessarine
