// A machine without any printer.
#pragma once

#include <string>

// Takes the printers out of the system's lists, for this program and those that it starts, until
// its end. The test runtime gives a program an instance of its own, so no other sees it.
class NoPrinters {
public:
    NoPrinters();
    ~NoPrinters();
    NoPrinters(const NoPrinters &) = delete;
    NoPrinters &operator=(const NoPrinters &) = delete;

private:
    std::string device_; // the default one's line of the profile
};
