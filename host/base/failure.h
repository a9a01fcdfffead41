// How a command fails: a text for the user and an exit code.
#pragma once

#include <stdexcept>
#include <string>

enum ExitCode { EXIT_DONE = 0, EXIT_FAILED = 1, EXIT_USAGE = 2, EXIT_CANCELLED = 3 };

struct Failure : std::runtime_error {
    Failure(const std::string &text, int exit_code = EXIT_FAILED)
        : std::runtime_error(text), code(exit_code) {}
    int code;
};
