// tess form: a form as JSON text and back.
#pragma once

#include <string>

struct FormOptions {
    std::string from;
    std::string to;
};

int FormBuildCommand(const FormOptions &options);
int FormDumpCommand(const FormOptions &options);
