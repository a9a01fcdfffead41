#include "host/tess/form_commands.h"

#include <cstdio>

#include "host/base/files.h"
#include "host/forms/form_from_json.h"
#include "host/forms/form_to_json.h"

int FormBuildCommand(const FormOptions &options) {
    const std::string &json = options.from;
    const size_t slash = json.find_last_of("\\/:");
    const std::string folder = slash == std::string::npos ? "" : json.substr(0, slash + 1);
    KeepInput(options.to, json);
    std::vector<std::string> pictures;
    const FormImage image = FormFromJson(json, ReadFileBytes(json), folder, &pictures);
    for (const std::string &picture : pictures) KeepInput(options.to, picture);
    WriteFileBytes(options.to, FormBytes(image));
    std::printf("%s: %zu items, %zu fields\n", options.to.c_str(), image.items.size(),
                image.fields.size());
    return 0;
}

int FormDumpCommand(const FormOptions &options) {
    KeepInput(options.to, options.from);
    WriteFileBytes(options.to, JsonFromForm(options.from, ReadForm(options.from)));
    std::printf("%s\n", options.to.c_str());
    return 0;
}
