#include "expr/arithmetic.h"

#include <cstring>

#include "expr/conditional.h"
#include "expr/summary_operators.h"
#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

constexpr int32_t FORGIVEN_QUOTIENT = INT32_MAX;

void SetBothSides(const Operation &operation, int32_t whole, double real) {
    operation.result->LongValue = whole;
    operation.result->DoubleValue = real;
}

// The last moved characters of first go to the very end. A missing text gives a missing result.
int JoinTexts(const Operation &operation, size_t moved) {
    if (!operation.run || !operation.left->TextValue || !operation.right->TextValue)
        return ANSWER_DONE;
    const std::string_view first = TextOf(operation.left);
    const std::string_view second = TextOf(operation.right);
    char *text = NewText(operation, first.size() + second.size());
    if (!text) return ANSWER_MEMORY;
    const size_t kept = first.size() - moved;
    std::memcpy(text, first.data(), kept);
    std::memcpy(text + kept, second.data(), second.size());
    std::memset(text + kept + second.size(), ' ', moved);
    text[first.size() + second.size()] = 0;
    return ANSWER_DONE;
}

size_t TrailingBlanks(std::string_view text) {
    return text.size() - (text.find_last_not_of(' ') + 1);
}

int Add(const Operation &operation) {
    const FieldRecord &left = *operation.left;
    const FieldRecord &right = *operation.right;
    if (operation.type_class == TYPE_TEXT) return JoinTexts(operation, 0);
    if (operation.type_class != TYPE_NUMERIC) return ANSWER_MISMATCH;
    SetBothSides(operation, WrapAdd(left.LongValue, right.LongValue),
                 left.DoubleValue + right.DoubleValue);
    return ANSWER_DONE;
}

int Subtract(const Operation &operation) {
    const FieldRecord &left = *operation.left;
    const FieldRecord &right = *operation.right;
    if (operation.type_class == TYPE_TEXT)
        return JoinTexts(operation, operation.run ? TrailingBlanks(TextOf(&left)) : 0);
    if (operation.type_class != TYPE_NUMERIC) return ANSWER_MISMATCH;
    SetBothSides(operation, WrapSubtract(left.LongValue, right.LongValue),
                 left.DoubleValue - right.DoubleValue);
    return ANSWER_DONE;
}

int Multiply(const Operation &operation) {
    const FieldRecord &left = *operation.left;
    const FieldRecord &right = *operation.right;
    if (operation.type_class != TYPE_NUMERIC) return ANSWER_MISMATCH;
    SetBothSides(operation, WrapMultiply(left.LongValue, right.LongValue),
                 left.DoubleValue * right.DoubleValue);
    return ANSWER_DONE;
}

int DivideLongs(const Operation &operation) {
    const int32_t divisor = operation.right->LongValue;
    const bool forgiven = divisor == 0 && operation.session->form.ForgiveZero;
    if (divisor == 0 && !forgiven) return ANSWER_ZERO;
    operation.result->LongValue =
        forgiven ? FORGIVEN_QUOTIENT : WrapDivide(operation.left->LongValue, divisor);
    return ANSWER_DONE;
}

int DivideDoubles(const Operation &operation) {
    const double divisor = operation.right->DoubleValue;
    const bool forgiven = divisor == 0.0 && operation.session->form.ForgiveZero;
    if (divisor == 0.0 && !forgiven) return ANSWER_ZERO;
    operation.result->DoubleValue =
        forgiven ? FORGIVEN_QUOTIENT : operation.left->DoubleValue / divisor;
    return ANSWER_DONE;
}

int Divide(const Operation &operation) {
    const FieldRecord &left = *operation.left;
    const FieldRecord &right = *operation.right;
    if (operation.type_class != TYPE_NUMERIC) return ANSWER_MISMATCH;
    SetBothSides(operation, left.LongValue, left.DoubleValue);
    if (!operation.run) return ANSWER_DONE;
    const bool longs = left.ValueType == TYPE_NUMERIC && right.ValueType == TYPE_NUMERIC;
    return longs ? DivideLongs(operation) : DivideDoubles(operation);
}

constexpr OperationRow basics[] = {
    {OP_PLUS, Add},
    {OP_MINUS, Subtract},
    {OP_TIMES, Multiply},
    {OP_DIVIDE, Divide},
};
static_assert(InCodeOrder(basics));

} // namespace

int PerformArithmetic(const Operation &operation) {
    for (const auto perform : {PerformSummary, PerformConditional})
        if (const int answer = perform(operation); answer != ANSWER_NOT_MINE) return answer;
    return PerformByTable(basics, operation);
}

} // namespace tessarine
