#include "expr/evaluator.h"

#include "expr/arithmetic.h"
#include "expr/comparison.h"
#include "expr/dates.h"
#include "expr/functions.h"
#include "form/defaults.h"
#include "frame/memory.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr int FAILED = 0; // of EvaluateExpression, where there is no operator to blame

constexpr int TEMP_END = int{CELL_TEMP} + MAX_TEMP_FIELDS;

bool IsTemporary(int cell) { return cell >= CELL_TEMP && cell < TEMP_END; }
bool IsField(const Session *session, int cell) {
    return cell >= 1 && cell < session->form.FieldCount;
}
bool IsOperator(int cell) { return cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR; }

void Complain(const Session *session, const char *text) { ShowSessionBox(session, text); }

FieldRecord *RowOf(Session *session, int cell) {
    FormState &form = session->form;
    return IsTemporary(cell) ? &form.TempFld[cell - CELL_TEMP] : &form.Fields[cell];
}

void FreeText(FieldRecord *record) {
    OurFree(record->TextValue);
    record->TextValue = nullptr;
}

// The temporary rows of one evaluation, and the record in which an operator leaves its result.
// Whatever texts they still own at its end are freed.
class Temporaries {
public:
    explicit Temporaries(Session *session) : session_(session) {
        for (int row = 0; row < MAX_TEMP_FIELDS; ++row) {
            session->form.TempFld[row].InUse = 0;
            session->form.TempFld[row].TextValue = nullptr;
        }
        working.InUse = 1;
    }
    ~Temporaries() {
        FreeText(&working);
        for (int row = 0; row < MAX_TEMP_FIELDS; ++row) FreeText(&session_->form.TempFld[row]);
    }
    Temporaries(const Temporaries &) = delete;
    Temporaries &operator=(const Temporaries &) = delete;

    FieldRecord working{};

private:
    Session *session_;
};

// The cells that a list may hold; rows and temporaries that it can't refer to count as consumed.
void TakeCells(const Session *session, const Cell *postfix, int *cells) {
    int place = 0;
    for (; place < MAX_CELLS && postfix[place] != CELL_END; ++place) {
        const int cell = postfix[place];
        const bool known = IsField(session, cell) || IsOperator(cell) || cell == CELL_NO_OPERAND;
        cells[place] = known ? cell : CELL_CONSUMED;
    }
    cells[place] = CELL_END;
}

struct Scan {
    int stop;     // place of the first operator or of the terminator
    int operands; // met before it
    int left;     // place of the last operand but one
    int right;    // place of the last operand
};

// A marked operand anywhere before the operator makes it part of a branch not taken.
Scan ScanToOperator(Session *session, const int *cells) {
    Scan scan{};
    session->form.ForgiveZero = 0;
    for (; cells[scan.stop] != CELL_END && !IsOperator(cells[scan.stop]); ++scan.stop) {
        const int cell = cells[scan.stop];
        if (cell == CELL_CONSUMED) continue;
        scan.left = scan.right;
        scan.right = scan.stop;
        ++scan.operands;
        if (cell != CELL_NO_OPERAND && (RowOf(session, cell)->FieldFlags & FIELD_BRANCH))
            session->form.ForgiveZero = 1;
    }
    return scan;
}

int FreeTemporaryRow(const Session *session) {
    for (int row = 0; row < MAX_TEMP_FIELDS; ++row)
        if (!session->form.TempFld[row].InUse) return row;
    return MAX_TEMP_FIELDS;
}

// Moves the working record to a temporary row; its cell, or 0 after a message.
int KeepResult(Session *session, FieldRecord *working) {
    const int row = FreeTemporaryRow(session);
    if (row == MAX_TEMP_FIELDS) {
        Complain(session, "Ran out of temporary field buffers.");
        return 0;
    }
    session->form.TempFld[row] = *working;
    session->form.TempFld[row].InUse = 1;
    working->TextValue = nullptr;
    return CELL_TEMP + row;
}

bool HasOperands(const Session *session, const int *cells, const Scan &scan) {
    if (scan.operands < 2) {
        Complain(session, "Invalid operator/operand position.");
        return false;
    }
    if (cells[scan.right] == CELL_NO_OPERAND) {
        Complain(session, "Invalid unary operator position.");
        return false;
    }
    return true;
}

// Replaces an operator and its operands by the cell of the result; false after a message.
bool Reduce(Session *session, int *cells, const Scan &scan, FieldRecord *working, int run) {
    if (!HasOperands(session, cells, scan)) return false;
    working->FieldFlags &= ~FIELD_BRANCH;
    if (!ApplyOperator(session, cells[scan.left], cells[scan.right], cells[scan.stop], working,
                       run))
        return false;
    const int cell = KeepResult(session, working);
    cells[scan.left] = CELL_CONSUMED;
    cells[scan.right] = CELL_CONSUMED;
    cells[scan.stop] = cell;
    return cell != 0;
}

// A temporary's text is handed over as it is, a field's is copied.
bool TakeText(FieldRecord *operand, bool temporary, FieldRecord *result) {
    if (temporary) {
        result->TextValue = operand->TextValue;
        operand->TextValue = nullptr;
        return true;
    }
    const Operation copying{nullptr, nullptr, nullptr, result, 0, 0, 1};
    return GiveCopy(copying, operand) == ANSWER_DONE;
}

int HandOver(Session *session, const int *cells, const Scan &scan, FieldRecord *result, int run) {
    if (scan.operands != 1 || cells[scan.right] == CELL_NO_OPERAND) {
        Complain(session, "Too many or too few fields.");
        return FAILED;
    }
    FieldRecord *operand = RowOf(session, cells[scan.right]);
    result->ValueType = operand->ValueType;
    result->LongValue = operand->LongValue;
    result->DoubleValue = operand->DoubleValue;
    result->TextValue = nullptr;
    if (!run || operand->ValueType != TYPE_TEXT) return CELL_END;
    if (TakeText(operand, IsTemporary(cells[scan.right]), result)) return CELL_END;
    Complain(session, "Ran out of memory during expression calculation.");
    return FAILED;
}

FieldRecord *TakeOperand(Session *session, int cell) {
    FieldRecord *record = RowOf(session, cell);
    if (IsTemporary(cell)) record->InUse = 0;
    return record;
}

int TypeClass(const FieldRecord *record) {
    return record->ValueType == TYPE_DOUBLE ? int{TYPE_NUMERIC} : record->ValueType;
}

// Types never convert, but a whole number beside a double counts as one.
bool SettleTypes(Operation *operation) {
    FieldRecord *left = operation->left;
    FieldRecord *right = operation->right;
    operation->type_class = TypeClass(right);
    if (TypeClass(left) != operation->type_class) return false;
    const bool doubles = left->ValueType == TYPE_DOUBLE || right->ValueType == TYPE_DOUBLE;
    if (doubles)
        for (FieldRecord *record : {left, right})
            if (record->ValueType == TYPE_NUMERIC) record->DoubleValue = record->LongValue;
    operation->result->ValueType =
        static_cast<int16_t>(doubles ? TYPE_DOUBLE : operation->type_class);
    return true;
}

// The zero of a date branch that was not taken stays zero, by which .ELSE. knows it.
void ExpandDates(const Operation &operation) {
    for (FieldRecord *record : {operation.left, operation.right}) {
        const bool not_taken =
            operation.code == OP_ELSE && record == operation.left && record->LongValue == 0;
        if (record->ValueType == TYPE_DATE && !not_taken)
            record->LongValue = ExpandedDate(record->LongValue);
    }
}

int Perform(Operation *operation) {
    const int code = operation->code;
    const bool typed = code < OP_LEN && code != OP_THEN && code != OP_ELSE;
    if (typed && !SettleTypes(operation)) return ANSWER_MISMATCH;
    ExpandDates(*operation);
    for (const auto perform : {PerformComparison, PerformArithmetic, PerformFunction})
        if (const int answer = perform(*operation); answer != ANSWER_NOT_MINE) return answer;
    return ANSWER_MISMATCH; // a parenthesis or comma of a damaged list
}

struct AnswerRow {
    int answer;
    const char *text;
};

constexpr AnswerRow answers[] = {
    {ANSWER_MEMORY, "Ran out of memory for string calculation."},
    {ANSWER_ZERO, "Error: Division by zero."},
    {ANSWER_MISMATCH, "Field type mismatch."},
};

int Fail(const Session *session, int answer) {
    for (const AnswerRow &row : answers)
        if (row.answer == answer) Complain(session, row.text);
    return 0;
}

} // namespace

int ApplyOperator(Session *session, int leftCell, int rightCell, int op, FieldRecord *result,
                  int run) {
    if (run) InitField(session, result);
    if (rightCell == CELL_NO_OPERAND) return Fail(session, ANSWER_MISMATCH);
    FieldRecord *right = TakeOperand(session, rightCell);
    FieldRecord missing;
    FieldRecord *left = &missing;
    if (leftCell == CELL_NO_OPERAND) {
        InitField(session, &missing);
        missing.ValueType = right->ValueType;
    } else {
        left = TakeOperand(session, leftCell);
    }
    Operation operation{session, left, right, result, op, 0, run};
    if (const int answer = Perform(&operation)) return Fail(session, answer);
    if (IsTemporary(rightCell)) FreeText(right);
    if (IsTemporary(leftCell)) FreeText(left);
    return 1;
}

int EvaluateExpression(Session *session, const Cell *postfix, FieldRecord *result, int run) {
    if (postfix[0] == CELL_END) return CELL_END;
    Temporaries temporaries(session);
    int cells[MAX_CELLS + 1];
    TakeCells(session, postfix, cells);
    for (;;) {
        const Scan scan = ScanToOperator(session, cells);
        const int op = cells[scan.stop];
        if (op == CELL_END) return HandOver(session, cells, scan, result, run);
        if (!Reduce(session, cells, scan, &temporaries.working, run)) return op;
    }
}

} // namespace tessarine
