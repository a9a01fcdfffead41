// Numbers that stand in a text, read by rules of our own: the runtime's readers ask the locale that
// a host has set, and with it take a point for the number's end.
#pragma once

#include <cstdint>

namespace tessarine {

// Both read the number that the text begins with, behind white space and a sign; 0 when there is
// none.
int32_t WholeNumberIn(const char *text); // one beyond 32 bits is the last of its side
double NumberIn(const char *text);       // with decimals and exponent; no words, no base of 16

} // namespace tessarine
