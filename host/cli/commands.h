// The commands of the command line. Each returns an exit code or throws Failure.
#pragma once

#include <string>
#include <vector>

struct RunOptions {
    std::string form;
    std::string data;
    std::string output;
    std::string to = "file";          // or "screen"
    std::vector<std::string> answers; // NAME=VALUE
    bool silent = false;
};

struct PagesOptions {
    std::string report;
    std::string folder; // of the pictures
    std::string pages;
    int dpi = 96;
    bool text = false;
};

struct PrintOptions {
    std::string report;
    std::string output; // of a PDF
    std::string pages;
    std::string printer;
    int copies = 1;
};

int RunCommand(const RunOptions &options);
int PagesCommand(const PagesOptions &options);
int PrintCommand(const PrintOptions &options);
int PdfCommand(const PrintOptions &options);
int PrintersCommand();
int ViewCommand(const std::string &report);
int InfoCommand(const std::string &path);
int FormBuildCommand(const std::string &json, const std::string &form);
int FormDumpCommand(const std::string &form, const std::string &json);
