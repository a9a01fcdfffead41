// tess pdf: pages of a report as a PDF.
#pragma once

#include <string>

struct PdfOptions {
    std::string report;
    std::string pdf;
    std::string pages;
    std::string printer;
};

int PdfCommand(const PdfOptions &options);
