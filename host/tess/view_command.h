// tess view: a report in a window.
#pragma once

#include <string>

int ViewCommand(const std::string &report);
