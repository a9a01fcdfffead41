#include "format/format_number.h"

#include <algorithm>

#include "format/bounded_text.h"
#include "format/format_field.h"
#include "frame/text.h"
#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

// 10 to the power of decimals, which wraps from the tenth on.
int32_t PowerOfTen(int decimals) {
    int32_t power = 1;
    for (int place = 0; place < decimals && power != 0; ++place) power = WrapMultiply(power, 10);
    return power;
}

// The fraction's digits as a number; *whole takes the carry. What a value beyond 32 bits has over
// its whole part is no fraction, and carries.
int32_t RoundedFraction(double fraction, int decimals, int32_t *whole) {
    const int32_t power = PowerOfTen(decimals);
    const double scaled = power * fraction;
    int32_t digits = ToInt32(scaled);
    if (scaled - digits >= 0.5) digits = WrapAdd(digits, 1);
    if (fraction < 1.0 && digits < power) return digits;
    *whole = WrapAdd(*whole, 1);
    return 0;
}

// Digits with zeros in front, so that they fill the places.
void AppendPlaces(BoundedText *text, int64_t digits, int places) {
    char buffer[MAX_LABEL_TEXT + 1];
    BoundedText number = StartText(buffer);
    AppendNumber(&number, digits);
    AppendRepeated(text, '0', places - static_cast<int>(number.length));
    Append(text, buffer);
}

// The whole number counts units of the last decimal place. Nothing stands before the point of a
// number that has no more digits than places. An empty DecimalChar ends the text at the point.
void WriteScaledDigits(int64_t magnitude, int decimals, char decimalChar, char *out) {
    BoundedText text = StartText(out);
    AppendNumber(&text, magnitude);
    const int digits = static_cast<int>(text.length);
    if (decimals <= 0) return;
    const int before = std::max(digits - decimals, 0);
    text.length = static_cast<size_t>(before);
    text.text[before] = 0;
    if (!decimalChar) return;
    int64_t scale = 1;
    for (int place = 0; before > 0 && place < decimals; ++place) scale *= 10;
    Append(&text, decimalChar);
    AppendPlaces(&text, before > 0 ? magnitude % scale : magnitude, decimals);
}

void GroupThousands(const FieldRecord *record, char *out) {
    const char separator = record->ThousandsChar[0];
    if (!separator) return;
    char plain[MAX_LABEL_TEXT + 1];
    CopyText(out, plain, sizeof plain);
    const int length = static_cast<int>(std::strlen(plain));
    const int before = FindCharAt(plain, record->DecimalChar[0], length);
    BoundedText text = StartText(out);
    for (int place = 0; place < length; ++place) {
        if (place > 0 && place < before && (before - place) % 3 == 0) Append(&text, separator);
        Append(&text, plain[place]);
    }
}

void AddCurrency(const Session *session, const FieldRecord *record, BoundedText *text) {
    if (record->SymbolKind == SYMBOL_CURRENCY && SymbolShows(session, record))
        Prepend(text, FieldText(record->CurrencySymbol));
}

// The shorter prefix leaves blanks before the digits, so that signs line up in a column.
void AddPrefix(const FieldRecord *record, bool negative, BoundedText *text) {
    const std::string_view minus = FieldText(record->NegativePrefix);
    const std::string_view plus = FieldText(record->PositivePrefix);
    const std::string_view own = negative ? minus : plus;
    char prefix[sizeof record->NegativePrefix];
    std::memset(prefix, ' ', sizeof prefix);
    own.copy(prefix, own.size());
    Prepend(text, {prefix, std::max(minus.size(), plus.size())});
}

void AddSuffix(const FieldRecord *record, bool negative, BoundedText *text) {
    const std::string_view minus = FieldText(record->NegativeSuffix);
    const std::string_view plus = FieldText(record->PositiveSuffix);
    if (minus.empty() && plus.empty() && record->SymbolKind != SYMBOL_PERCENT) return;
    Append(text, negative ? minus : plus);
    TrimRight(text->text);
}

int64_t Magnitude(int32_t whole) { return whole < 0 ? -static_cast<int64_t>(whole) : whole; }

} // namespace

char *FormatDouble(double value, int decimals, char decimalChar, char *out) {
    BoundedText text = StartText(out);
    if (value < 0.0) {
        Append(&text, '-');
        value = -value;
    }
    int32_t whole = ToInt32(value);
    if (decimals < 1) {
        if (whole >= 0) AppendNumber(&text, whole);
        return out;
    }
    const int32_t fraction = RoundedFraction(value - whole, decimals, &whole);
    AppendNumber(&text, std::max(whole, 0));
    if (!decimalChar) return out;
    Append(&text, decimalChar);
    AppendPlaces(&text, fraction, decimals);
    return out;
}

void FormatNumber(const Session *session, const FieldRecord *record, int32_t whole, double real,
                  char *out) {
    const bool is_double = record->ValueType == TYPE_DOUBLE;
    const bool zero = is_double ? real == 0.0 : whole == 0;
    const std::string_view zero_text = FieldText(record->ZeroText);
    if (zero && zero_text != "0") {
        BoundedText text = StartText(out);
        Append(&text, zero_text);
        return;
    }
    const bool negative = is_double ? real < 0.0 : whole < 0;
    const char point = record->DecimalChar[0];
    if (is_double)
        FormatDouble(negative ? -real : real, record->Decimals, point, out);
    else
        WriteScaledDigits(Magnitude(whole), record->Decimals, point, out);
    GroupThousands(record, out);
    BoundedText text = ContinueText(out);
    AddCurrency(session, record, &text);
    AddPrefix(record, negative, &text);
    AddSuffix(record, negative, &text);
}

} // namespace tessarine
