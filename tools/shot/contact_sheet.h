// All dialogs of the library in one picture.
#pragma once

#include <string>

void TakeDialogs(const std::string &picture);
