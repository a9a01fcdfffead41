// tess design: a form in the designer's window.
#pragma once

#include <string>

struct DesignOptions {
    std::string form;
    std::string data; // the table whose columns are the fields
};

// An exit code, as from every command. Throws Failure.
int DesignCommand(const DesignOptions &options);
