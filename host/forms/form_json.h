// A form as readable, diffable JSON text and back.
#pragma once

#include <string>

#include "host/forms/form_image.h"

// folder: where pictures named by a file are looked for. A mistake throws Failure with the JSON's
// path, line and the place in it.
FormImage FormFromJson(const std::string &path, const std::string &text, const std::string &folder);
// Throws Failure when a row of the form points where nothing is.
std::string JsonFromForm(const std::string &path, const FormImage &form);
