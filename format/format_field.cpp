#include "format/format_field.h"

#include "format/bounded_text.h"
#include "format/format_date.h"
#include "format/format_number.h"
#include "format/format_text.h"
#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

struct PrintedValue {
    int32_t whole;
    double real;
};

PrintedValue Value(const FieldRecord *record) { return {record->LongValue, record->DoubleValue}; }
PrintedValue Sum(const FieldRecord *record) { return {record->LongSummary, record->DoubleSummary}; }

PrintedValue Average(const FieldRecord *record) {
    const int32_t count = record->SummaryCount;
    if (count <= 0) return Sum(record);
    return {record->LongSummary / count, record->DoubleSummary / count};
}

PrintedValue Count(const FieldRecord *record) {
    return {record->SummaryCount, static_cast<double>(record->SummaryCount)};
}

// A summary is consumed as it prints: a second printing shows 0.
struct SummaryRow {
    int type;
    PrintedValue (*value)(const FieldRecord *record);
    bool clears_sums;
    bool clears_count;
};

constexpr SummaryRow summaries[] = {
    {SUMMARY_VALUE, Value, false, false},   {SUMMARY_TOTAL, Sum, true, false},
    {SUMMARY_AVERAGE, Average, true, true}, {SUMMARY_COUNT, Count, false, true},
    {SUMMARY_MAX, Sum, true, false},        {SUMMARY_MIN, Sum, true, false},
};

PrintedValue TakeValue(FieldRecord *record) {
    for (const SummaryRow &row : summaries) {
        if (row.type != record->SummaryType) continue;
        const PrintedValue value = row.value(record);
        if (row.clears_sums) {
            record->LongSummary = 0;
            record->DoubleSummary = 0.0;
        }
        if (row.clears_count) record->SummaryCount = 0;
        return value;
    }
    return {0, 0.0}; // an unknown summary has no value
}

void NumberField(Session *session, FieldRecord *record, PrintedValue value, char *buffer) {
    FormatNumber(session, record, value.whole, value.real, buffer);
}

void TextField(Session *, FieldRecord *record, PrintedValue, char *) { FormatText(record); }

void LogicalField(Session *, FieldRecord *record, PrintedValue value, char *buffer) {
    BoundedText text = StartText(buffer);
    Append(&text, FieldText(value.whole ? record->TrueText : record->FalseText));
}

void DateField(Session *session, FieldRecord *record, PrintedValue value, char *buffer) {
    FormatDate(session, record, value.whole, buffer);
}

struct TypeRow {
    int type;
    void (*format)(Session *session, FieldRecord *record, PrintedValue value, char *buffer);
};

constexpr TypeRow types[] = {
    {TYPE_NUMERIC, NumberField},  {TYPE_DOUBLE, NumberField}, {TYPE_TEXT, TextField},
    {TYPE_LOGICAL, LogicalField}, {TYPE_DATE, DateField},
};

} // namespace

int FormatField(Session *session, FieldRecord *record, char *buffer) {
    const PrintedValue value = TakeValue(record);
    for (const TypeRow &row : types)
        if (row.type == record->ValueType) row.format(session, record, value, buffer);
    return 1;
}

bool SymbolShows(const Session *session, const FieldRecord *record) {
    if (record->SummaryType != SUMMARY_VALUE && record->SummaryType != SUMMARY_COUNT) return true;
    const int when = record->SymbolWhen;
    return (when & WHEN_ALWAYS) || (session->run.FirstOnPage && (when & WHEN_FIRST_ON_PAGE)) ||
           (session->run.FirstInGroup && (when & WHEN_FIRST_IN_GROUP));
}

} // namespace tessarine
