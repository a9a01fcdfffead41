// Finished pages on a printer.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "host/view/report_reader.h"

struct PrintRequest {
    std::string printer;
    std::string title;
    std::string output; // a file for printers that write one, else ""
    int copies = 1;
};

// Prints these pages, each from 1, on the paper of the report, and shows the progress. An interrupt
// or a failure drops the whole job. Throws Failure.
void PrintPagesOf(ReportReader *report, const std::vector<int> &pages, const PrintRequest &request);
