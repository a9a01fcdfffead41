#include "expr/conditional.h"

namespace tessarine {

namespace {

int If(const Operation &operation) {
    if (operation.right->ValueType != TYPE_LOGICAL) return ANSWER_MISMATCH;
    operation.result->ValueType = TYPE_LOGICAL;
    operation.result->LongValue = operation.right->LongValue;
    if (!operation.right->LongValue) operation.result->FieldFlags |= FIELD_BRANCH;
    return ANSWER_DONE;
}

int BranchNotTaken(const Operation &operation) {
    operation.result->LongValue = 0;
    operation.result->DoubleValue = 0.0;
    return operation.right->ValueType == TYPE_TEXT ? GiveText(operation, "") : ANSWER_DONE;
}

// The side that the type doesn't use is the mark of a taken branch, so a value of zero is taken.
int BranchTaken(const Operation &operation) {
    FieldRecord *result = operation.result;
    const FieldRecord &value = *operation.right;
    result->LongValue = 1;
    result->DoubleValue = 1.0;
    if (value.ValueType == TYPE_DOUBLE)
        result->DoubleValue = value.DoubleValue;
    else if (value.ValueType != TYPE_TEXT)
        result->LongValue = value.LongValue;
    if (!operation.session->form.ForgiveZero) result->FieldFlags |= FIELD_BRANCH;
    if (value.ValueType != TYPE_TEXT || !operation.run) return ANSWER_DONE;
    return GiveCopy(operation, &value);
}

int Then(const Operation &operation) {
    if (operation.right->ValueType == TYPE_LOGICAL) return ANSWER_MISMATCH;
    operation.result->ValueType = operation.right->ValueType;
    if (operation.run && !operation.left->LongValue) return BranchNotTaken(operation);
    return BranchTaken(operation);
}

bool HoldsTakenBranch(const FieldRecord *record) {
    if (record->ValueType == TYPE_NUMERIC) return record->DoubleValue != 0.0;
    return record->LongValue != 0;
}

int Else(const Operation &operation) {
    if (!operation.run && operation.left->ValueType != operation.right->ValueType)
        return ANSWER_MISMATCH;
    const FieldRecord *chosen = HoldsTakenBranch(operation.left) ? operation.left : operation.right;
    *operation.result = *chosen;
    operation.result->TextValue = nullptr;
    operation.result->FieldFlags &= ~FIELD_BRANCH; // what follows is no longer a branch
    if (chosen->ValueType != TYPE_TEXT || !operation.run) return ANSWER_DONE;
    return GiveCopy(operation, chosen);
}

constexpr OperationRow conditionals[] = {{OP_IF, If}, {OP_THEN, Then}, {OP_ELSE, Else}};
static_assert(InCodeOrder(conditionals));

} // namespace

int PerformConditional(const Operation &operation) {
    return PerformByTable(conditionals, operation);
}

} // namespace tessarine
