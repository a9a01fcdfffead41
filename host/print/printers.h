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
    HGLOBAL Copy() const; // the caller's to free

private:
    std::string printer_;
    std::vector<char> bytes_;
};

std::vector<PrinterName> Printers();
// The wanted printer, or the default one for "". Throws Failure with the known names.
std::string ChosenPrinter(const std::string &wanted);
// The number of a printer's paper by its name, in any case of letters. Throws Failure.
int PaperNumber(const std::string &printer, const std::string &paper);
// A DEVNAMES block; the caller's to free.
HGLOBAL DeviceNames(const std::string &printer);
