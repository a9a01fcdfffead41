// Where in a JSON text a value stands.
#pragma once

#include <string>

// The line, from 1, at which the value of a JSON pointer (as "/sections/2/height") begins, or the
// line of the nearest value around it. The text is known to be sound JSON.
int LineOfPointer(const std::string &text, const std::string &pointer);
