// The printers of this machine and their settings.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

struct PrinterName {
    std::string name;
    bool usual; // the default printer
};

// A DEVMODE with the driver's bytes behind it.
class PrinterMode {
public:
    // The printer's own settings. Throws Failure.
    explicit PrinterMode(std::string printer);

    DEVMODEA *Get() { return reinterpret_cast<DEVMODEA *>(bytes_.data()); }
    // Lets the driver accept or correct what was changed.
    void Merge();

private:
    std::string printer_;
    std::vector<char> bytes_;
};

std::vector<PrinterName> Printers();
bool HasPrinter(const std::string &name); // in any case of letters
// No session of the library opens without a default printer. Throws Failure.
void NeedUsualPrinter();
// The wanted printer, or the default one for "". Throws Failure with the known names.
std::string ChosenPrinter(const std::string &wanted);
// The number of a printer's paper by its name, in any case of letters. Throws Failure.
int PaperNumber(const std::string &printer, const std::string &paper);
