// Whether a form's rows point to rows that are there.
#pragma once

#include <string>

#include "host/forms/form_image.h"

// Throws Failure that names the file, the row and what it points to.
void CheckForm(const std::string &path, const FormImage &form);
