#include <cstdio>

#include "host/cli/commands.h"
#include "host/data/files.h"
#include "host/forms/form_json.h"

int FormDumpCommand(const FormOptions &options) {
    KeepInput(options.to, options.from);
    WriteFileBytes(options.to, JsonFromForm(options.from, ReadForm(options.from)));
    std::printf("%s\n", options.to.c_str());
    return 0;
}
