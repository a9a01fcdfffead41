#include <cstdio>

#include "host/cli/commands.h"
#include "host/data/files.h"
#include "host/forms/form_json.h"

int FormBuildCommand(const std::string &json, const std::string &form) {
    const size_t slash = json.find_last_of("\\/:");
    const std::string folder = slash == std::string::npos ? "" : json.substr(0, slash + 1);
    const FormImage image = FormFromJson(json, ReadFileBytes(json), folder);
    WriteFileBytes(form, FormBytes(image));
    std::printf("%s: %zu items, %zu fields\n", form.c_str(), image.items.size(),
                image.fields.size());
    return 0;
}

int FormDumpCommand(const std::string &form, const std::string &json) {
    WriteFileBytes(json, JsonFromForm(form, ReadForm(form)));
    std::printf("%s\n", json.c_str());
    return 0;
}
