#include "expr/number_functions.h"

#include <cmath>

#include "frame/text_numbers.h"
#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

// The two sides are chosen each by itself.
template <typename Choice> int Extreme(const Operation &operation, Choice choose) {
    FieldRecord *left = operation.left;
    FieldRecord *right = operation.right;
    if (!IsNumber(left) || !IsNumber(right)) return ANSWER_MISMATCH;
    const bool differ = left->ValueType != right->ValueType;
    operation.result->ValueType = differ ? int16_t{TYPE_DOUBLE} : left->ValueType;
    if (!operation.run) return ANSWER_DONE;
    if (differ) {
        FieldRecord *numeric = left->ValueType == TYPE_NUMERIC ? left : right;
        numeric->DoubleValue = numeric->LongValue;
    }
    operation.result->LongValue = choose(left->LongValue, right->LongValue);
    operation.result->DoubleValue = choose(left->DoubleValue, right->DoubleValue);
    return ANSWER_DONE;
}

// Neither 0 nor an infinite value changes any more, however many places there are.
bool Settled(double value) { return value == 0.0 || !std::isfinite(value); }

// The intermediate is a whole number of 32 bits: a scaled value beyond it gives a wrong result.
double Rounded(double value, int32_t places) {
    for (int32_t place = 0; place < places && !Settled(value); ++place) value *= 10.0;
    double result = ToInt32(value < 0.0 ? value - 0.5 : value + 0.5);
    for (int32_t place = 0; place < places && !Settled(result); ++place) result /= 10.0;
    return result;
}

} // namespace

int FunctionMin(const Operation &operation) {
    return Extreme(operation, [](auto a, auto b) { return b < a ? b : a; });
}

int FunctionMax(const Operation &operation) {
    return Extreme(operation, [](auto a, auto b) { return b > a ? b : a; });
}

int FunctionVal(const Operation &operation) {
    const FieldRecord &value = *operation.right;
    operation.result->ValueType = TYPE_NUMERIC;
    if (!operation.run) return ANSWER_DONE;
    operation.result->LongValue =
        value.ValueType == TYPE_TEXT ? WholeNumberIn(TextOf(&value).data()) : CountOf(&value);
    return ANSWER_DONE;
}

int FunctionRound(const Operation &operation) {
    if (!IsNumber(operation.left) || !IsNumber(operation.right)) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_DOUBLE;
    if (operation.run)
        operation.result->DoubleValue = Rounded(RealOf(operation.left), CountOf(operation.right));
    return ANSWER_DONE;
}

int FunctionAbs(const Operation &operation) {
    const FieldRecord &value = *operation.right;
    if (!IsNumber(&value)) return ANSWER_MISMATCH;
    operation.result->ValueType = value.ValueType;
    if (!operation.run) return ANSWER_DONE;
    const int32_t whole = value.LongValue;
    operation.result->LongValue = whole < 0 ? WrapSubtract(0, whole) : whole;
    operation.result->DoubleValue = std::fabs(value.DoubleValue);
    return ANSWER_DONE;
}

} // namespace tessarine
