#include <exception>

#include "fuzz/changes.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/runs.h"
#include "host/forms/form_from_json.h"
#include "host/forms/form_to_json.h"

namespace {

constexpr const char *words[] = {"{",
                                 "}",
                                 "[",
                                 "]",
                                 ",",
                                 ":",
                                 "\"",
                                 "null",
                                 "true",
                                 "-1",
                                 "0",
                                 "1e99",
                                 "65536",
                                 "99999999999",
                                 "\"\\u0000\"",
                                 "\"\\ud800\"",
                                 "\"form\"",
                                 "\"fonts\":[",
                                 "\"fields\":[",
                                 "\"breaks\":[",
                                 "\"sections\":[",
                                 "\"items\":[",
                                 "\"user fields\":[",
                                 "\"picture\":",
                                 "\"picture info\":",
                                 "\"picture bits\":",
                                 "\"expression\":\"",
                                 "\"filter\":\"",
                                 "\"name\":\"",
                                 "\"width\":",
                                 "\"height\":",
                                 "\"at\":[",
                                 "\"size\":[",
                                 "\"font\":",
                                 "\"field\":",
                                 "\"type\":\"double\"",
                                 "\"kind\":\"calculation\"",
                                 "\"summary\":\"total\"",
                                 "\"flags\":[",
                                 "\"label\":{",
                                 "@1",
                                 "#1",
                                 ".IF.",
                                 ".THEN.",
                                 "LEFT(",
                                 ")",
                                 "SYS->PAGE",
                                 "\"parks.bmp\"",
                                 "\"1.5in\"",
                                 "\"points\":"};

std::string Changed(Random *random, const std::string &input) {
    return ChangedText(random, input, words);
}

void Run(const std::string &input) {
    try {
        const FormImage form = FormFromJson("case.json", input, SamplePath(""));
        WriteScratch("CASE.FP", FormBytes(form));
        RunForm("CASE.FP");
        JsonFromForm("CASE.FP", ReadForm(ScratchPath("CASE.FP")));
    } catch (const std::exception &) { // told to the user
    }
}

} // namespace

const Kind json_forms = {"json", SeedForms, Changed, Run};
