#include "frame/text_numbers.h"

#include <charconv>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>

#include "frame/text.h"

namespace tessarine {

namespace {

constexpr const char *WHITE_SPACE = " \t\n\v\f\r";

// The text behind white space and a plus sign, which the readers don't know.
std::string_view NumberPart(const char *text) {
    text += std::strspn(text, WHITE_SPACE);
    if (*text == '+' && text[1] != '-') ++text;
    return text;
}

// Words are numbers to the reader, too.
bool BeginsNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return text.starts_with('.') || (!text.empty() && IsDigit(text[0]));
}

// A text out of range is too large, unless its exponent says how small it is.
double OutOfRange(std::string_view text) {
    if (text.find("e-") != text.npos || text.find("E-") != text.npos) return 0.0;
    const double infinite = std::numeric_limits<double>::infinity();
    return text.starts_with('-') ? -infinite : infinite;
}

} // namespace

int32_t WholeNumberIn(const char *text) {
    const std::string_view part = NumberPart(text);
    int32_t number = 0;
    const auto read = std::from_chars(part.data(), part.data() + part.size(), number);
    if (read.ec != std::errc::result_out_of_range) return number;
    return part.starts_with('-') ? INT32_MIN : INT32_MAX;
}

double NumberIn(const char *text) {
    const std::string_view part = NumberPart(text);
    if (!BeginsNumber(part)) return 0.0;
    double number = 0.0;
    const auto read = std::from_chars(part.data(), part.data() + part.size(), number);
    if (read.ec != std::errc::result_out_of_range) return number;
    return OutOfRange({part.data(), static_cast<size_t>(read.ptr - part.data())});
}

} // namespace tessarine
