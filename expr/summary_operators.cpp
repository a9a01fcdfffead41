#include "expr/summary_operators.h"

#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

int ReadSums(const Operation &operation) {
    operation.result->LongValue = operation.right->LongSummary;
    operation.result->DoubleValue = operation.right->DoubleSummary;
    return ANSWER_DONE;
}

int ReadAverage(const Operation &operation) {
    const FieldRecord &field = *operation.right;
    const int32_t count = field.SummaryCount;
    operation.result->LongValue = count ? WrapDivide(field.LongSummary, count) : 0;
    operation.result->DoubleValue = count ? field.DoubleSummary / count : 0.0;
    return ANSWER_DONE;
}

int ReadCount(const Operation &operation) {
    operation.result->ValueType = TYPE_NUMERIC;
    operation.result->LongValue = operation.right->SummaryCount;
    return ANSWER_DONE;
}

template <int Type, int (*Read)(const Operation &)> int Summarise(const Operation &operation) {
    if (operation.type_class != TYPE_NUMERIC) return ANSWER_MISMATCH;
    operation.right->SummaryType = Type;
    return Read(operation);
}

constexpr OperationRow summaries[] = {
    {OP_TOTAL, Summarise<SUMMARY_TOTAL, ReadSums>},
    {OP_AVERAGE, Summarise<SUMMARY_AVERAGE, ReadAverage>},
    {OP_MAX_OF, Summarise<SUMMARY_MAX, ReadSums>},
    {OP_MIN_OF, Summarise<SUMMARY_MIN, ReadSums>},
    {OP_COUNT, Summarise<SUMMARY_COUNT, ReadCount>},
};
static_assert(InCodeOrder(summaries));

} // namespace

int PerformSummary(const Operation &operation) { return PerformByTable(summaries, operation); }

} // namespace tessarine
