#include "form/field_sample.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>

#include "frame/text.h"
#include "frame/text_measure.h"

namespace tessarine {

namespace {

constexpr size_t LONGEST = MAX_LABEL_TEXT;
constexpr int INSETS = 20;         // both sides of an item, form units
constexpr int DEFAULT_BUDGET = 580; // form units
constexpr int ITEM_HEIGHT = 50;     // form units
constexpr const char *POSTNET_SAMPLE = "920082324";

// What a sample is made for.
struct Request {
    const Session *session;
    const FieldRecord &field;
    int width; // form units left for text; 0 for no limit
    int font;

    int WidthOf(char c) const {
        return session->form.Fonts[font].CharWidth[static_cast<unsigned char>(c)];
    }
};

std::string CasedSample(uint16_t flags) {
    std::string text(LONGEST, 'x');
    for (size_t place = 4; place < LONGEST; place += 5) text[place] = 'X';
    if (flags & FIELD_UPPER) {
        UpperText(text.data());
    } else if (flags & FIELD_LOWER) {
        LowerText(text.data());
    } else if (flags & FIELD_CAPITALIZE) {
        LowerText(text.data());
        text[0] = 'X';
    }
    return text;
}

std::string TextSample(const Request &request) {
    const FieldRecord &field = request.field;
    const std::string text =
        field.FieldFlags & FIELD_POSTNET ? POSTNET_SAMPLE : CasedSample(field.FieldFlags);
    const int budget = request.width > 0 ? request.width : DEFAULT_BUDGET;
    size_t limit = text.size();
    if (field.FieldKind != FIELD_CALC)
        limit = std::min(limit, static_cast<size_t>(std::max<int>(field.FieldWidth, 0)));
    int used = 0;
    size_t count = 0;
    while (count < limit && used < budget) used += request.WidthOf(text[count++]);
    if (used > budget && count > 0) --count;
    return text.substr(0, count);
}

std::string Grouped(const std::string &digits, const FieldRecord &field) {
    const size_t point = digits.find(field.DecimalChar[0]);
    const size_t whole = field.DecimalChar[0] && point != std::string::npos ? point : digits.size();
    std::string text;
    for (size_t place = 0; place < whole; ++place) {
        if (place > 0 && (whole - place) % 3 == 0) text += field.ThousandsChar;
        text += digits[place];
    }
    return text + digits.substr(whole);
}

std::string DigitSample(const FieldRecord &field) {
    const size_t width = static_cast<size_t>(std::clamp<int>(field.FieldWidth, 0, LONGEST));
    const size_t decimals = static_cast<size_t>(std::clamp<int>(field.Decimals, 0, LONGEST));
    std::string digits(width, '9');
    if (decimals > width)
        digits = field.DecimalChar + std::string(decimals - width, '0') + digits;
    else if (decimals > 0)
        digits.insert(width - decimals, field.DecimalChar);
    return *field.ThousandsChar ? Grouped(digits, field) : digits;
}

// Of two of equal width the negative one.
const char *Wider(const Request &request, const char *negative, const char *positive) {
    const int negative_width = GetLabelLen(request.session, negative, request.font);
    const int positive_width = GetLabelLen(request.session, positive, request.font);
    return positive_width > negative_width ? positive : negative;
}

std::string CutFromLeft(const Request &request, const std::string &text) {
    int left = request.width;
    size_t start = text.size();
    while (start > 0 && left >= request.WidthOf(text[start - 1]))
        left -= request.WidthOf(text[--start]);
    std::string kept = text.substr(start);
    if (kept.empty()) kept = "9";
    if (request.field.ThousandsChar[0] && kept[0] == request.field.ThousandsChar[0]) kept[0] = '9';
    return kept;
}

std::string NumberSample(const Request &request) {
    const FieldRecord &field = request.field;
    std::string text = DigitSample(field);
    if (field.SymbolKind == SYMBOL_CURRENCY) text = field.CurrencySymbol + text;
    text = Wider(request, field.NegativePrefix, field.PositivePrefix) + text +
           Wider(request, field.NegativeSuffix, field.PositiveSuffix);
    if (field.SymbolKind == SYMBOL_PERCENT) text += '%';
    return request.width > 0 ? CutFromLeft(request, text) : text;
}

std::string DateSample(const Request &request) {
    const std::string d = request.field.DateDelimiter;
    switch (request.field.DateFormat) {
    case 0: return "mm" + d + "dd" + d + "yy";
    case 1: return "dd" + d + "mm" + d + "yy";
    case 2: return "mm" + d + "dd" + d + "yyyy";
    case 3: return "Mmm dd, yyyy";
    case 4: return "Month dd, yyyy";
    case 5: return "dd" + d + "mm" + d + "yyyy";
    case 6: return "dd Mmm, yyyy";
    case 7: return "dd Month, yyyy";
    default: return "";
    }
}

std::string LogicalSample(const Request &request) {
    const FieldRecord &field = request.field;
    return std::strlen(field.FalseText) > std::strlen(field.TrueText) ? field.FalseText
                                                                      : field.TrueText;
}

std::string PictureSample(const Request &request) {
    return std::string(static_cast<size_t>(std::max<int>(request.field.FieldWidth, 0)), 'P');
}

struct SampleRow {
    int value_type;
    std::string (*make)(const Request &request);
};

constexpr SampleRow sample_rows[] = {
    {TYPE_NUMERIC, NumberSample}, {TYPE_DOUBLE, NumberSample},   {TYPE_TEXT, TextSample},
    {TYPE_LOGICAL, LogicalSample}, {TYPE_DATE, DateSample}, {TYPE_PICTURE, PictureSample},
};

} // namespace

int CreateFieldLabel(Session *session, int field, char *buffer, int width, int font) {
    const int room = width > 0 ? std::max(width - INSETS, 1) : 0;
    const Request request{session, session->form.Fields[field], room, font};
    buffer[0] = 0;
    for (const SampleRow &row : sample_rows)
        if (row.value_type == request.field.ValueType)
            CopyText(row.make(request).c_str(), buffer, LONGEST + 1);
    return 1;
}

int GetFieldSize(Session *session, int field, int font, int32_t *height, int32_t *width) {
    char text[LONGEST + 1];
    CreateFieldLabel(session, field, text, 0, font);
    *width = GetLabelLen(session, text, font) + INSETS;
    *height = session->form.Fields[field].ValueType == TYPE_PICTURE ? *width : ITEM_HEIGHT;
    return 1;
}

} // namespace tessarine
