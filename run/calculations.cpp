#include "run/calculations.h"

#include <cstring>

#include "expr/evaluator.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

void StoreResult(FieldRecord *row, const FieldRecord &result) {
    if (row->ValueType == TYPE_TEXT) {
        OurFree(row->TextValue);
        row->TextValue = nullptr;
    }
    if (result.ValueType == TYPE_TEXT) {
        OurFree(row->TextValue);
        row->TextValue = result.TextValue;
        const size_t length = result.TextValue ? std::strlen(result.TextValue) : 0;
        row->FieldWidth = static_cast<int16_t>(static_cast<int>(length) - 2);
    } else if (result.ValueType == TYPE_DOUBLE) {
        row->DoubleValue = result.DoubleValue;
    } else {
        row->LongValue = result.LongValue;
    }
}

void Calculate(Session *session, FieldRecord *row, const char *failure) {
    FieldRecord result{};
    if (EvaluateExpression(session, row->FieldTokens, &result, 1) != CELL_END)
        FatalErrorWith(session, failure, row->FieldName, CODE_EXPRESSION);
    StoreResult(row, result);
}

} // namespace

void EvalBreakFields(Session *session) {
    const FormState &form = session->form;
    for (int level = 0; level < form.BreakCount; ++level) {
        FieldRecord *row = &form.Fields[form.Breaks[level].BreakField];
        if (row->FieldKind == FIELD_CALC)
            Calculate(session, row, "Error In Break Calculation Field: %s");
    }
}

void CalcFields(Session *session, int low, int high) {
    for (int number = 0; number < session->form.FieldCount; ++number) {
        FieldRecord *row = &session->form.Fields[number];
        if (row->FieldKind != FIELD_CALC) continue;
        if (row->SummarySection < low || row->SummarySection > high) continue;
        if (low < SECTION_SORT_FOOTER_9 && (row->FieldFlags & FIELD_IN_FOOTER)) continue;
        Calculate(session, row, "Error In Calculation Field: %s");
    }
}

} // namespace tessarine
