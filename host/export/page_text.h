// The texts of a page with their places.
#pragma once

#include <string>

#include "host/export/report_pages.h"

// page: a sound one. A line a text, in the order of drawing: x and y in form units, then the text.
std::string PageText(const std::string &page);
