#include "expr/date_text.h"

#include <cstring>

#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int SHORTEST = 8; // with the delimiters at both ends
constexpr int LONGEST = 12;
constexpr int LONGEST_PART = 4; // digits of a year

struct Parts { // numbers between separators; the last is the year
    int numbers[3] = {0, 0, 0};
    bool whole = false;
};

struct PartReader {
    Parts parts;
    int count = 0;  // parts closed
    int value = 0;  // of the open part
    int digits = 0; // of the open part
    char separator = 0;

    // A third separator is accepted, and the part before it takes the second part's place.
    bool Close(char c) {
        if ((c != '-' && c != '/' && c != ',') || digits < 1 || digits > 2) return false;
        if (count == 1 && c != separator) return false;
        if (count == 3) return false;
        if (count == 0) separator = c;
        parts.numbers[count == 0 ? 0 : 1] = value;
        ++count;
        value = digits = 0;
        return true;
    }
};

Parts ReadParts(const char *text, int length) {
    PartReader reader;
    for (int place = 1; place < length - 1; ++place) {
        const char c = text[place];
        if (IsDigit(c)) {
            if (++reader.digits > LONGEST_PART) return reader.parts;
            reader.value = reader.value * 10 + (c - '0');
        } else if (!reader.Close(c)) {
            return reader.parts;
        }
    }
    reader.parts.numbers[2] = reader.value;
    reader.parts.whole = reader.count >= 1 && reader.digits >= 1;
    return reader.parts;
}

int DaysOf(int month, int year) {
    if (month == 4 || month == 6 || month == 9 || month == 11) return 30;
    if (month == 2) return year % 4 == 0 ? 29 : 28;
    return 31;
}

} // namespace

DateShape ParseDateText(const Session *session, const char *text, int32_t *date) {
    *date = -1;
    const int length = static_cast<int>(std::strlen(text));
    if (length < SHORTEST || length > LONGEST) return DateShape::NotADate;
    const Parts parts = ReadParts(text, length);
    if (!parts.whole) return DateShape::NotADate;
    const bool day_first = session->form.Header.DateEntryFormat != 0;
    const int month = parts.numbers[day_first ? 1 : 0];
    const int day = parts.numbers[day_first ? 0 : 1];
    int year = parts.numbers[2];
    if (month < 1 || month > 12 || day < 1 || day > DaysOf(month, year)) return DateShape::Invalid;
    if (year <= 99) year += 1900;
    *date = year * 10000 + month * 100 + day;
    return DateShape::Valid;
}

} // namespace tessarine
