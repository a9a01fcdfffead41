// tess run: a report from a form and a table.
#pragma once

#include <string>
#include <vector>

struct RunOptions {
    std::string form;
    std::string data;
    std::string output;
    std::string to = "file"; // or "screen" or "printer"
    std::string printer;
    std::string paper; // by its name
    bool landscape = false;
    std::vector<std::string> answers; // NAME=VALUE
    bool silent = false;
};

// An exit code, as from every command. Throws Failure.
int RunCommand(const RunOptions &options);
