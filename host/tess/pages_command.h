// tess pages: the pages of a report as pictures or texts.
#pragma once

#include <string>

struct PagesOptions {
    std::string report;
    std::string folder; // of the pictures
    std::string pages;
    int dpi = 96;
    bool text = false;
};

int PagesCommand(const PagesOptions &options);
