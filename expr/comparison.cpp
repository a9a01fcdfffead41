#include "expr/comparison.h"

#include <cstring>
#include <functional>

#include "frame/text.h"

namespace tessarine {

namespace {

struct NotLess {
    template <typename Value> bool operator()(Value a, Value b) const { return !(a < b); }
};

struct NotGreater {
    template <typename Value> bool operator()(Value a, Value b) const { return !(a > b); }
};

// Blanks at the end never count; the operands themselves are stripped of them.
template <typename Relation> int CompareTexts(const Operation &operation) {
    char *left = operation.left->TextValue;
    char *right = operation.right->TextValue;
    if (!operation.run || !left || !right) return ANSWER_DONE;
    TrimRight(left);
    TrimRight(right);
    operation.result->LongValue = Relation{}(lstrcmpA(left, right), 0);
    return ANSWER_DONE;
}

template <typename Relation> int CompareLongs(const Operation &operation) {
    const int32_t left = operation.left->LongValue;
    const int32_t right = operation.right->LongValue;
    operation.result->LongValue = Relation{}(left, right);
    return ANSWER_DONE;
}

template <typename Relation> int CompareNumbers(const Operation &operation) {
    const FieldRecord &left = *operation.left;
    const FieldRecord &right = *operation.right;
    if (left.ValueType == TYPE_NUMERIC && right.ValueType == TYPE_NUMERIC)
        return CompareLongs<Relation>(operation);
    const double left_value = left.DoubleValue;
    const double right_value = right.DoubleValue;
    operation.result->LongValue = Relation{}(left_value, right_value);
    return ANSWER_DONE;
}

template <typename Relation> int CompareOrder(const Operation &operation) {
    switch (operation.type_class) {
    case TYPE_NUMERIC: return CompareNumbers<Relation>(operation);
    case TYPE_TEXT: return CompareTexts<Relation>(operation);
    case TYPE_DATE: return CompareLongs<Relation>(operation);
    default: return ANSWER_MISMATCH;
    }
}

template <typename Relation> int CompareEquality(const Operation &operation) {
    if (operation.type_class == TYPE_LOGICAL) return CompareLongs<Relation>(operation);
    return CompareOrder<Relation>(operation);
}

template <typename Rule> int Logic(const Operation &operation) {
    if (operation.type_class != TYPE_LOGICAL) return ANSWER_MISMATCH;
    operation.result->LongValue =
        Rule{}(operation.left->LongValue != 0, operation.right->LongValue != 0);
    return ANSWER_DONE;
}

struct NotRight {
    bool operator()(bool, bool right) const { return !right; }
};

int IsContained(const Operation &operation) {
    if (operation.type_class != TYPE_TEXT) return ANSWER_MISMATCH;
    const char *part = operation.left->TextValue;
    const char *whole = operation.right->TextValue;
    if (operation.run && part && whole && *part)
        operation.result->LongValue = FindText(whole, part) != nullptr;
    return ANSWER_DONE;
}

constexpr OperationRow comparisons[] = {
    {OP_EQUAL, CompareEquality<std::equal_to<>>},
    {OP_NOT_EQUAL, CompareEquality<std::not_equal_to<>>},
    {OP_POINT, CompareEquality<std::not_equal_to<>>},
    {OP_GREATER, CompareOrder<std::greater<>>},
    {OP_LESS, CompareOrder<std::less<>>},
    {OP_NOT_LESS, CompareOrder<NotLess>},
    {OP_NOT_GREATER, CompareOrder<NotGreater>},
    {OP_OR, Logic<std::logical_or<>>},
    {OP_AND, Logic<std::logical_and<>>},
    {OP_NOT, Logic<NotRight>},
    {OP_CONTAINED, IsContained},
};
static_assert(InCodeOrder(comparisons));

} // namespace

int PerformComparison(const Operation &operation) {
    if (operation.code < OP_EQUAL || operation.code > OP_CONTAINED) return ANSWER_NOT_MINE;
    operation.result->ValueType = TYPE_LOGICAL;
    operation.result->LongValue = 0;
    return PerformByTable(comparisons, operation);
}

} // namespace tessarine
