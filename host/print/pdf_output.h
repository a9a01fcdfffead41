// Reports as PDF files, made by a printer that writes PDF.
#pragma once

#include <string>
#include <vector>

#include "host/view/report_reader.h"

// The named printer, or for "" the one whose name tells PDF. Throws Failure.
std::string PdfPrinter(const std::string &wanted);
// Prints the pages to the printer and brings what it made to path. A printer that names its files
// itself puts them in the folder of TESSARINE_PRINT_DIR; any other is given the path. Throws
// Failure.
void WritePdf(ReportReader *report, const std::vector<int> &pages, const std::string &printer,
              const std::string &path);
