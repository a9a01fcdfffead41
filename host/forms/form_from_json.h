// A form from readable, diffable JSON text.
#pragma once

#include <string>
#include <vector>

#include "host/forms/form_image.h"

// folder: where pictures named by a file are looked for; pictures, unless null, takes the paths of
// those that were read. A mistake throws Failure with the JSON's path, line and the place in it.
FormImage FormFromJson(const std::string &path, const std::string &text, const std::string &folder,
                       std::vector<std::string> *pictures = nullptr);
