#include "format/bounded_text.h"

#include <algorithm>
#include <charconv>

#include "tessarine_numbers.h"

namespace tessarine {

BoundedText ContinueText(char *buffer) { return {buffer, std::strlen(buffer), MAX_LABEL_TEXT}; }

BoundedText StartText(char *buffer) {
    buffer[0] = 0;
    return {buffer, 0, MAX_LABEL_TEXT};
}

void Append(BoundedText *to, std::string_view text) {
    const size_t count = std::min(text.size(), to->limit - to->length);
    text.copy(to->text + to->length, count);
    to->length += count;
    to->text[to->length] = 0;
}

void Append(BoundedText *to, char character) { Append(to, std::string_view(&character, 1)); }

void AppendNumber(BoundedText *to, int64_t number) {
    char digits[24];
    const char *end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    Append(to, {digits, static_cast<size_t>(end - digits)});
}

void AppendRepeated(BoundedText *to, char character, int count) {
    const size_t room = to->limit - to->length;
    const size_t added = std::min(room, static_cast<size_t>(std::max(count, 0)));
    std::memset(to->text + to->length, character, added);
    to->length += added;
    to->text[to->length] = 0;
}

void Prepend(BoundedText *to, std::string_view text) {
    const size_t added = std::min(text.size(), to->limit);
    const size_t kept = std::min(to->length, to->limit - added);
    std::memmove(to->text + added, to->text, kept);
    text.copy(to->text, added);
    to->length = added + kept;
    to->text[to->length] = 0;
}

} // namespace tessarine
