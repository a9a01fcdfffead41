// Work that must be done by another process: a test program runs itself again for it.
#pragma once

#include <string>

#include "state/windows.h"

// Names a routine for other processes; stands at namespace scope.
struct OtherWork {
    OtherWork(const std::string &name, void (*routine)());
};

// A process that has done the work of this name, and stays until the object goes.
class OtherProcess {
public:
    explicit OtherProcess(const std::string &name);
    ~OtherProcess();
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;

    bool Ready() const { return ready_; } // the work is done

private:
    HANDLE done_;
    HANDLE end_;
    PROCESS_INFORMATION process_{};
    bool ready_ = false;
};

// In a process that was started for work: does it, and stays until it may end. False in others.
bool ServedAsOther(int count, char **arguments);
