// Time and memory of a program of the bench.
#pragma once

#include <cstdio>

#include <windows.h>

#include <psapi.h>

class Measure {
public:
    Measure() : start_(Now()) {}
    double Seconds() const { return Now() - start_; }

private:
    static double Now() {
        LARGE_INTEGER ticks;
        LARGE_INTEGER frequency;
        QueryPerformanceCounter(&ticks);
        QueryPerformanceFrequency(&frequency);
        return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
    }
    double start_;
};

inline unsigned long PeakKilobytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<unsigned long>(counters.PeakWorkingSetSize / 1024);
}
