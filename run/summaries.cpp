#include "run/record_driver.h"

namespace tessarine {

namespace {

// Whole-number totals wrap around, as they are printed.
int32_t Sum(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

void Accumulate(FieldRecord *field) {
    field->SummaryCount = Sum(field->SummaryCount, 1);
    switch (field->SummaryType) {
    case SUMMARY_MAX:
        if (field->DoubleSummary < field->DoubleValue) field->DoubleSummary = field->DoubleValue;
        if (field->LongValue > field->LongSummary) field->LongSummary = field->LongValue;
        break;
    case SUMMARY_MIN:
        if (field->DoubleSummary > field->DoubleValue) field->DoubleSummary = field->DoubleValue;
        if (field->LongValue < field->LongSummary) field->LongSummary = field->LongValue;
        break;
    default:
        field->DoubleSummary += field->DoubleValue;
        field->LongSummary = Sum(field->LongSummary, field->LongValue);
    }
}

} // namespace

void ResetSummary(FieldRecord *field, int32_t longValue, double doubleValue) {
    const bool extreme = field->SummaryType == SUMMARY_MAX || field->SummaryType == SUMMARY_MIN;
    field->LongSummary = extreme ? longValue : 0;
    field->DoubleSummary = extreme ? doubleValue : 0.0;
    field->SummaryCount = 0;
}

void AccumulateSummaries(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) Accumulate(&session->form.Fields[row]);
}

} // namespace tessarine
