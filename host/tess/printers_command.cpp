#include "host/tess/printers_command.h"

#include <cstdio>

#include "host/base/failure.h"
#include "host/print/printers.h"

int PrintersCommand(const PrintersOptions &) {
    const std::vector<PrinterName> printers = Printers();
    if (printers.empty()) std::fprintf(stderr, "tess: there is no printer on this machine\n");
    for (const PrinterName &printer : printers)
        std::printf("%s %s\n", printer.usual ? "*" : " ", printer.name.c_str());
    return EXIT_DONE;
}
