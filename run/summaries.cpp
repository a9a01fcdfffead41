#include "run/summaries.h"

#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

void Accumulate(FieldRecord *field) {
    field->SummaryCount = WrapAdd(field->SummaryCount, 1);
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
        field->LongSummary = WrapAdd(field->LongSummary, field->LongValue);
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
