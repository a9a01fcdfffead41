#include "format/format_date.h"

#include <algorithm>
#include <charconv>

#include "format/bounded_text.h"
#include "format/month_names.h"
#include "frame/text_numbers.h"

namespace tessarine {

namespace {

constexpr int32_t OLD_DATES_END = 991231; // values below are yymmdd
constexpr int32_t OLD_DATES_START = 19000000;
constexpr size_t DATE_DIGITS = 11; // of a damaged value, with its sign

// m, d: month and day in two digits; y, Y: year in two and four; S, L: short and long name of the
// month; D: the day without a leading zero; /: the delimiter.
constexpr const char *patterns[] = {"m/d/y", "d/m/y",  "m/d/Y",  "S D, Y", "L D, Y",
                                    "d/m/Y", "D S, Y", "D L, Y", "Y m/d"};
constexpr int PATTERNS = static_cast<int>(sizeof patterns / sizeof *patterns);

struct DateParts {
    char year[5];
    char month[3];
    char day[3];
};

// The digits are taken where they fall, also of a value that has fewer than eight.
DateParts TakeApart(int32_t value) {
    char digits[DATE_DIGITS + 1]{};
    std::to_chars(digits, digits + DATE_DIGITS, value);
    DateParts parts{};
    std::memcpy(parts.year, digits, 4);
    std::memcpy(parts.month, digits + 4, 2);
    std::memcpy(parts.day, digits + 6, 2);
    return parts;
}

} // namespace

void FormatDate(const Session *, const FieldRecord *record, int32_t value, char *out) {
    BoundedText text = StartText(out);
    if (value == 0 || record->DateFormat < 0 || record->DateFormat >= PATTERNS) return;
    const DateParts parts = TakeApart(value < OLD_DATES_END ? value + OLD_DATES_START : value);
    const int month = std::clamp(WholeNumberIn(parts.month), 1, 12) - 1;
    const struct {
        char letter;
        std::string_view text;
    } pieces[] = {
        {'m', parts.month},
        {'d', parts.day},
        {'D', parts.day[0] == '0' ? parts.day + 1 : parts.day},
        {'y', parts.year + 2},
        {'Y', parts.year},
        {'S', ShortMonths[month]},
        {'L', LongMonths[month]},
        {'/', FieldText(record->DateDelimiter).substr(0, 1)},
        {' ', " "},
        {',', ","},
    };
    for (const char *letter = patterns[record->DateFormat]; *letter; ++letter)
        for (const auto &piece : pieces)
            if (piece.letter == *letter) Append(&text, piece.text);
}

} // namespace tessarine
