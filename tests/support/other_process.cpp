#include "tests/support/other_process.h"

#include <map>

namespace {

constexpr const char *FLAG = "--other-work";
constexpr DWORD LONGEST_WAIT = 60'000; // milliseconds

std::map<std::string, void (*)()> &Works() {
    static std::map<std::string, void (*)()> works;
    return works;
}

// Both processes know the events by the number of the one that asks.
HANDLE EventOf(const std::string &number, const char *which) {
    return CreateEventA(nullptr, TRUE, FALSE, ("tessarine-" + number + which).c_str());
}

} // namespace

OtherWork::OtherWork(const std::string &name, void (*routine)()) { Works()[name] = routine; }

OtherProcess::OtherProcess(const std::string &name) {
    const std::string number = std::to_string(GetCurrentProcessId());
    done_ = EventOf(number, "-done");
    end_ = EventOf(number, "-end");
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    std::string line = '"' + std::string(program) + "\" " + FLAG + " " + name + " " + number;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process_))
        ready_ = WaitForSingleObject(done_, LONGEST_WAIT) == WAIT_OBJECT_0;
}

OtherProcess::~OtherProcess() {
    SetEvent(end_);
    if (process_.hProcess) {
        if (WaitForSingleObject(process_.hProcess, LONGEST_WAIT) != WAIT_OBJECT_0)
            TerminateProcess(process_.hProcess, 998);
        CloseHandle(process_.hProcess);
        CloseHandle(process_.hThread);
    }
    CloseHandle(done_);
    CloseHandle(end_);
}

bool ServedAsOther(int count, char **arguments) {
    if (count != 4 || std::string(FLAG) != arguments[1]) return false;
    const HANDLE done = EventOf(arguments[3], "-done");
    const HANDLE end = EventOf(arguments[3], "-end");
    const auto work = Works().find(arguments[2]);
    if (work != Works().end()) {
        work->second();
        SetEvent(done);
        WaitForSingleObject(end, LONGEST_WAIT);
    }
    CloseHandle(done);
    CloseHandle(end);
    return true;
}
