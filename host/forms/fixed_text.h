// Texts in records.
#pragma once

#include <cstring>
#include <string>

// A text of fixed size, which ends at its terminator or with its last byte.
template <size_t Size> std::string FixedText(const char (&field)[Size]) {
    return {field, strnlen(field, Size)};
}
