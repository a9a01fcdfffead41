#include "form/field_sample.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "form/label_measure.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int INSET = 20;           // of an item's text, both sides together
constexpr int DEFAULT_BUDGET = 580; // of a text without a limit, form units
constexpr int FIELD_HEIGHT = 50;
constexpr int CAPITAL_STEP = 5;
constexpr const char *POSTNET_SAMPLE = "920082324";

// The room that a sample has.
struct Room {
    const FontEntry &font;
    bool limited;
    int budget; // form units

    int WidthOf(char c) const { return font.CharWidth[static_cast<unsigned char>(c)]; }
    int WidthOf(std::string_view text) const {
        int width = 0;
        for (const char c : text) width += WidthOf(c);
        return width;
    }
};

// A record's text, which a host may have left without its terminator.
template <size_t Size> std::string_view TextOf(const char (&field)[Size]) {
    return {field, strnlen(field, Size)};
}

int Bounded(int count) { return std::clamp(count, 0, int{MAX_LABEL_TEXT}); }

void Give(std::string_view text, char *buffer) {
    const size_t length = std::min(text.size(), size_t{MAX_LABEL_TEXT});
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
}

void ApplyCase(const FieldRecord &field, char *text) {
    if (field.FieldFlags & FIELD_UPPER) {
        UpperText(text);
    } else if (field.FieldFlags & FIELD_LOWER) {
        LowerText(text);
    } else if (field.FieldFlags & FIELD_CAPITALIZE) {
        LowerText(text + 1);
        text[0] = 'X';
    }
}

void FillText(const FieldRecord &field, char *buffer) {
    if (field.FieldFlags & FIELD_POSTNET) {
        std::strcpy(buffer, POSTNET_SAMPLE);
        return;
    }
    for (int place = 0; place < MAX_LABEL_TEXT; ++place)
        buffer[place] = (place + 1) % CAPITAL_STEP == 0 ? 'X' : 'x';
    buffer[MAX_LABEL_TEXT] = 0;
    ApplyCase(field, buffer);
}

void WriteText(const FieldRecord &field, const Room &room, char *buffer) {
    FillText(field, buffer);
    const int budget = room.limited ? room.budget : DEFAULT_BUDGET;
    const int limit = field.FieldKind == FIELD_CALC ? int{MAX_LABEL_TEXT} : field.FieldWidth;
    int used = 0;
    int count = 0;
    while (used < budget && count < limit && buffer[count]) used += room.WidthOf(buffer[count++]);
    if (used > budget && count > 0) --count;
    buffer[count] = 0;
}

// As many nines as the field is wide, with the point before the decimals. A field with more
// decimals than width has zeros behind its point.
std::string Digits(const FieldRecord &field) {
    const int width = Bounded(field.FieldWidth);
    const int decimals = Bounded(field.Decimals);
    std::string digits(static_cast<size_t>(width), '9');
    if (decimals == 0) return digits;
    if (decimals > width) digits.insert(0, static_cast<size_t>(decimals - width), '0');
    digits.insert(digits.size() - static_cast<size_t>(decimals), TextOf(field.DecimalChar));
    return digits;
}

std::string Grouped(const FieldRecord &field, std::string digits) {
    for (int place = Bounded(field.FieldWidth) - Bounded(field.Decimals) - 3; place > 0; place -= 3)
        digits.insert(static_cast<size_t>(place), TextOf(field.ThousandsChar));
    return digits;
}

std::string_view Wider(const Room &room, std::string_view negative, std::string_view positive) {
    return room.WidthOf(positive) > room.WidthOf(negative) ? positive : negative;
}

// The end of the text, as far as the room goes, and never less than one digit.
std::string FittingEnd(const FieldRecord &field, const Room &room, const std::string &text) {
    size_t start = text.size();
    int used = 0;
    while (start > 0 && used + room.WidthOf(text[start - 1]) <= room.budget)
        used += room.WidthOf(text[--start]);
    std::string end = text.substr(start);
    if (end.empty()) return "9";
    if (end[0] == field.ThousandsChar[0]) end[0] = '9';
    return end;
}

void WriteNumber(const FieldRecord &field, const Room &room, char *buffer) {
    std::string text = Grouped(field, Digits(field));
    if (field.SymbolKind == SYMBOL_CURRENCY) text.insert(0, TextOf(field.CurrencySymbol));
    text.insert(0, Wider(room, TextOf(field.NegativePrefix), TextOf(field.PositivePrefix)));
    text += Wider(room, TextOf(field.NegativeSuffix), TextOf(field.PositiveSuffix));
    if (field.SymbolKind == SYMBOL_PERCENT) text += '%';
    Give(room.limited ? FittingEnd(field, room, text) : text, buffer);
}

// By DateFormat; "/" stands for the field's delimiter.
constexpr const char *date_samples[] = {"mm/dd/yy",     "dd/mm/yy",       "mm/dd/yyyy",
                                        "Mmm dd, yyyy", "Month dd, yyyy", "dd/mm/yyyy",
                                        "dd Mmm, yyyy", "dd Month, yyyy"};

void WriteDate(const FieldRecord &field, const Room &, char *buffer) {
    if (field.DateFormat < 0 || field.DateFormat >= static_cast<int>(std::size(date_samples)))
        return;
    std::string text;
    for (const char *c = date_samples[field.DateFormat]; *c; ++c) {
        if (*c == '/')
            text += TextOf(field.DateDelimiter);
        else
            text += *c;
    }
    Give(text, buffer);
}

void WriteLogical(const FieldRecord &field, const Room &, char *buffer) {
    const std::string_view yes = TextOf(field.TrueText);
    const std::string_view no = TextOf(field.FalseText);
    Give(no.size() > yes.size() ? no : yes, buffer);
}

void WritePicture(const FieldRecord &field, const Room &, char *buffer) {
    Give(std::string(static_cast<size_t>(Bounded(field.FieldWidth)), 'P'), buffer);
}

struct SampleRow {
    int value_type;
    void (*write)(const FieldRecord &field, const Room &room, char *buffer);
};

constexpr SampleRow sample_rows[] = {
    {TYPE_NUMERIC, WriteNumber},  {TYPE_DOUBLE, WriteNumber}, {TYPE_TEXT, WriteText},
    {TYPE_LOGICAL, WriteLogical}, {TYPE_DATE, WriteDate},     {TYPE_PICTURE, WritePicture},
};

bool AreRows(const Session *session, int field, int font) {
    return field >= 0 && field < session->form.FieldCount && font >= 0 && font < MAX_FONTS;
}

} // namespace

int CreateFieldLabel(Session *session, int field, char *buffer, int width, int font) {
    buffer[0] = 0;
    if (!AreRows(session, field, font)) return 1;
    const FieldRecord &record = session->form.Fields[field];
    const Room room{session->form.Fonts[font], width != 0, width > 0 ? width - INSET : width};
    for (const SampleRow &row : sample_rows)
        if (row.value_type == record.ValueType) row.write(record, room, buffer);
    return 1;
}

int GetFieldSize(Session *session, int field, int font, int32_t *height, int32_t *width) {
    char sample[MAX_LABEL_TEXT + 1];
    CreateFieldLabel(session, field, sample, 0, font);
    *width = INSET;
    *height = FIELD_HEIGHT;
    if (!AreRows(session, field, font)) return 1;
    *width += GetLabelLen(session->form.Fonts[font], sample);
    if (session->form.Fields[field].ValueType == TYPE_PICTURE) *height = *width;
    return 1;
}

} // namespace tessarine
