// tess print: pages of a report on a printer.
#pragma once

#include <string>

struct PrintOptions {
    std::string report;
    std::string pages;
    std::string printer;
    int copies = 1;
};

int PrintCommand(const PrintOptions &options);
