// Files that the kinds share.
#pragma once

#include <string>
#include <vector>

// The checkout, and where cases put their files.
void SetPlaces(const std::string &root, const std::string &scratch);
std::string SamplePath(const std::string &name);
std::string SampleText(const std::string &name);
std::string ScratchPath(const std::string &name);
void WriteScratch(const std::string &name, const std::string &bytes);
// The forms that others come from, as JSON: a small one, which opens fast, and a sample or two.
std::vector<std::string> SeedForms();
// The form file of a form of these.
std::string FormFile(const std::string &json);
