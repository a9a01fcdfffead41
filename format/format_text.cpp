#include "format/format_text.h"

#include "frame/text.h"

namespace tessarine {

namespace {

void CapitalizeWords(char *text) {
    LowerText(text);
    for (char *letter = text; *letter; ++letter)
        if (letter == text || letter[-1] == ' ') *letter = UpperLetter(*letter);
}

} // namespace

void FormatText(FieldRecord *record) {
    char *text = record->TextValue;
    if (!text) return;
    if (record->FieldFlags & FIELD_UPPER)
        UpperText(text);
    else if (record->FieldFlags & FIELD_LOWER)
        LowerText(text);
    else if (record->FieldFlags & FIELD_CAPITALIZE)
        CapitalizeWords(text);
    if (record->FieldFlags & FIELD_TRIM) TrimRight(text);
}

} // namespace tessarine
