// A text that is built in a buffer of fixed size: what passes its end is left out.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace tessarine {

// The text of a record's field, which a damaged file may leave without its terminator.
template <size_t Size> std::string_view FieldText(const char (&field)[Size]) {
    return {field, strnlen(field, Size)};
}

struct BoundedText {
    char *text; // always terminated
    size_t length;
    size_t limit; // characters, without the terminator
};

// Goes on behind the text that stands in the buffer of MAX_LABEL_TEXT + 1 bytes.
BoundedText ContinueText(char *buffer);
BoundedText StartText(char *buffer);
void Append(BoundedText *to, std::string_view text);
void Append(BoundedText *to, char character);
void AppendNumber(BoundedText *to, int64_t number);
void AppendRepeated(BoundedText *to, char character, int count); // none for a count below 1
void Prepend(BoundedText *to, std::string_view text);

} // namespace tessarine
