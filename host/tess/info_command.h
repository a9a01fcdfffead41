// tess info: what a form or a report holds.
#pragma once

#include <string>

int InfoCommand(const std::string &path);
