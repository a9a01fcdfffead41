// What the groups of operators and functions share: codes, arguments and answers.
#pragma once

#include <cstddef>
#include <string_view>

#include "operators.h"
#include "state/session.h"

namespace tessarine {

static_assert(int{OP_MONTHTOS} == int{CELL_LAST_OPERATOR});

enum { // answers of an operation
    ANSWER_DONE = 0,
    ANSWER_MEMORY = 3,
    ANSWER_ZERO = 6, // division by zero
    ANSWER_MISMATCH = 7,
    ANSWER_NOT_MINE = 8
};

// The left operand of a unary operation is a default record of the right one's type. With run 0
// there is no data: the result's type is worked out and texts are left alone.
struct Operation {
    Session *session;
    FieldRecord *left;
    FieldRecord *right;
    FieldRecord *result;
    int code;
    int type_class; // of both operands, double counted as numeric; functions don't look at it
    int run;
};

struct OperationRow {
    int code;
    int (*perform)(const Operation &operation);
};

template <size_t Rows> constexpr bool InCodeOrder(const OperationRow (&rows)[Rows]) {
    for (size_t row = 1; row < Rows; ++row)
        if (rows[row].code != rows[row - 1].code + 1) return false;
    return true;
}

// Performs the operation by its row in a table in the order of codes without gaps.
template <size_t Rows>
int PerformByTable(const OperationRow (&rows)[Rows], const Operation &operation) {
    const int row = operation.code - rows[0].code;
    if (row < 0 || row >= static_cast<int>(Rows)) return ANSWER_NOT_MINE;
    return rows[row].perform(operation);
}

inline bool IsNumber(const FieldRecord *record) {
    return record->ValueType == TYPE_NUMERIC || record->ValueType == TYPE_DOUBLE;
}

std::string_view TextOf(const FieldRecord *record); // empty for a null TextValue
int32_t CountOf(const FieldRecord *number);         // a double is truncated
double RealOf(const FieldRecord *number);

// Gives the result a block for a text of that length, 2 bytes longer; null on failure.
char *NewText(const Operation &operation, size_t length);
int GiveText(const Operation &operation, std::string_view text); // a copy
// Gives the result a copy of the record's text, null for a null TextValue.
int GiveCopy(const Operation &operation, const FieldRecord *record);

} // namespace tessarine
