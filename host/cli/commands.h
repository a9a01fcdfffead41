// The commands of the command line. Each returns an exit code or throws Failure.
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

struct PagesOptions {
    std::string report;
    std::string folder; // of the pictures
    std::string pages;
    int dpi = 96;
    bool text = false;
};

struct PrintOptions {
    std::string report;
    std::string pages;
    std::string printer;
    int copies = 1;
};

struct PdfOptions {
    std::string report;
    std::string pdf;
    std::string pages;
    std::string printer;
};

struct FormOptions {
    std::string from;
    std::string to;
};

struct FileOptions {
    std::string path;
};

struct NoOptions {};

int RunCommand(const RunOptions &options);
int PagesCommand(const PagesOptions &options);
int PrintCommand(const PrintOptions &options);
int PdfCommand(const PdfOptions &options);
int PrintersCommand(const NoOptions &);
int ViewCommand(const FileOptions &options);
int InfoCommand(const FileOptions &options);
int FormBuildCommand(const FormOptions &options);
int FormDumpCommand(const FormOptions &options);
