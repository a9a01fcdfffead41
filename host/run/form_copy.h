// A form for a run on another printer or paper than its own.
#pragma once

#include <string>

#include "tessarine.h"

struct PaperWish {
    std::string printer; // "": the form's
    std::string paper;   // by its name; "": the form's
    bool landscape = false;

    bool Any() const { return landscape || !printer.empty() || !paper.empty(); }
};

// A run goes to the printer and the paper that its form names, and takes nothing else for its
// device, so a wish becomes a copy of the form that names them. Deleted with the object.
class FormCopy {
public:
    // Throws Failure when there is no such printer or paper.
    FormCopy(const std::string &form, const PaperWish &wish);
    ~FormCopy();
    FormCopy(const FormCopy &) = delete;
    FormCopy &operator=(const FormCopy &) = delete;

    const std::string &Path() const { return path_; }
    // The printer that the copy names.
    const std::string &Printer() const { return printer_; }

private:
    std::string path_;
    std::string printer_;
};
