// The command line program, started as a process of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "state/windows.h"
#include "tests/support/test_session.h"

struct Outcome {
    DWORD code;
    std::string output; // standard output and error
};

// A started program. Ended with the object when it still runs.
class Running {
public:
    // program: a path; the log takes standard output and error. Only one with a console of its own
    // can be interrupted.
    Running(const std::string &program, const std::string &arguments, const std::string &log,
            bool own_console = false);
    ~Running();
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

    // Waits for the program's end; code 998 when it didn't end by itself.
    Outcome Wait();
    // As Ctrl+C at its console.
    void Interrupt() const;
    // Waits until the log holds the text, or the program has ended; true when it holds it.
    bool Says(const std::string &text) const;
    // Waits for a visible window of the class; null when none comes.
    HWND Window(const char *window_class) const;

private:
    std::string log_;
    PROCESS_INFORMATION process_{};
};

class Tess : public testing::Test {
protected:
    Outcome Run(const std::string &arguments);
    static std::string Program();
    static std::string Sample(const std::string &name);
    // Builds a sample's form; its path.
    std::string Build(const std::string &name);
    // The same with another title of its report, and so of its job; and with a part of its text
    // replaced by another, unless that is "".
    std::string BuildTitled(const std::string &name, const std::string &title,
                            const std::string &part = "", const std::string &other = "");
    // How many files of the folder have names that match.
    int Files(const std::string &pattern) const;
    // Runs a sample to NAME.frc in the folder.
    Outcome Report(const std::string &name, const std::string &more = "");

    TemporaryFolder folder;
};

bool Holds(const std::string &text, const std::string &part);

// Waits until it holds; false when it doesn't come true within a minute.
template <typename Condition> bool Comes(Condition condition) {
    constexpr int LONGEST = 6000; // turns of 10 milliseconds
    for (int turn = 0; turn < LONGEST; ++turn) {
        if (condition()) return true;
        Sleep(10);
    }
    return false;
}
