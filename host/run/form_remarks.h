// What a form asks for and this machine lacks.
#pragma once

#include <string>
#include <vector>

#include "host/forms/form_image.h"

// The form's own printer, when a run stood on another.
std::vector<std::string> PrinterRemarks(const FormHeader &form, const std::string &printer);
// Fonts of the form's items that neither the display nor the printer has.
std::vector<std::string> FontRemarks(const FormImage &form, const std::string &printer);
