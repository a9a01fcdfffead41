#include "fuzz/places.h"

#include "host/base/files.h"
#include "host/forms/form_from_json.h"
#include "tests/support/test_session.h"

namespace {

std::string checkout;
std::string folder;

} // namespace

void SetPlaces(const std::string &root, const std::string &scratch) {
    checkout = root + "\\";
    folder = scratch + "\\";
}

std::string SamplePath(const std::string &name) { return checkout + "samples\\" + name; }
std::string SampleText(const std::string &name) { return ReadFileBytes(SamplePath(name)); }
std::string ScratchPath(const std::string &name) { return folder + name; }

void WriteScratch(const std::string &name, const std::string &bytes) {
    WriteWholeFile(ScratchPath(name), bytes);
}

std::vector<std::string> SeedForms() {
    const std::string small = ReadFileBytes(checkout + "fuzz\\form.json");
    return {small, small, small, small, SampleText("airports.json"), SampleText("parks.json")};
}

std::string FormFile(const std::string &json) {
    return FormBytes(FormFromJson("seed.json", json, SamplePath("")));
}
