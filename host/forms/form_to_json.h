// A form as readable, diffable JSON text.
#pragma once

#include <string>

#include "host/forms/form_image.h"

// Throws Failure when a row of the form points where nothing is.
std::string JsonFromForm(const std::string &path, const FormImage &form);
