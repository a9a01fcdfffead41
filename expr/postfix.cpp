#include "expr/postfix.h"

#include "expr/operations.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr int STACK_SIZE = 100;

const OperatorRow &RowOf(const Session *session, int cell) {
    return session->form.OperatorTable[cell - CELL_FIRST_OPERATOR];
}

bool IsOperator(int cell) { return cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR; }

// A conversion under way. Once something failed, its message was shown and nothing goes on.
struct Conversion {
    Session *session;
    uint16_t stack[STACK_SIZE];
    int depth = 0;
    Cell *output;
    int count = 0;
    bool failed = false;

    void Fail(const char *message) {
        if (!failed) ShowSessionBox(session, message);
        failed = true;
    }
    void Push(int cell) {
        if (depth == STACK_SIZE)
            Fail("ReportWriter stack overflow.");
        else
            stack[depth++] = static_cast<uint16_t>(cell);
    }
    int Pop() {
        if (depth > 0) return stack[--depth];
        Fail("Parenthesis mismatch or stack underflow.");
        return OP_LEFT_PARENTHESIS;
    }
    // The postfix of a legal list can pass the cells that a form keeps for it.
    void Append(int cell) {
        if (count >= MAX_CELLS - 1)
            Fail("ReportWriter stack overflow.");
        else
            output[count++] = static_cast<uint16_t>(cell);
    }
};

bool IsBinaryFunction(const Session *session, int cell) {
    if (!IsOperator(cell)) return false;
    const OperatorRow &row = RowOf(session, cell);
    return row.Function && !row.Unary;
}

// A function of two arguments becomes an operator between them, in its comma's place.
int MoveFunctionsToCommas(Conversion *conversion, const Cell *infix, uint16_t *work) {
    int count = 0;
    for (int place = 0; place < MAX_CELLS && infix[place] != CELL_END; ++place) {
        const int cell = infix[place];
        if (IsBinaryFunction(conversion->session, cell))
            conversion->Push(cell);
        else
            work[count++] = static_cast<uint16_t>(cell == OP_COMMA ? conversion->Pop() : cell);
        if (conversion->failed) return cell;
    }
    work[count] = CELL_END;
    if (conversion->depth == 0) return CELL_END;
    const int cell = conversion->Pop();
    conversion->Fail("Invalid expression.");
    return cell;
}

void CloseParenthesis(Conversion *conversion) {
    for (int cell = conversion->Pop(); cell != OP_LEFT_PARENTHESIS; cell = conversion->Pop())
        conversion->Append(cell);
}

// All operators are left-associative: an equal precedence pops.
void PlaceOperator(Conversion *conversion, int cell) {
    const int precedence = RowOf(conversion->session, cell).Precedence;
    int popped = conversion->Pop();
    while (popped != OP_LEFT_PARENTHESIS &&
           RowOf(conversion->session, popped).Precedence >= precedence) {
        conversion->Append(popped);
        popped = conversion->Pop();
    }
    conversion->Push(popped);
    conversion->Push(cell);
}

// Postfix has two operands ahead of every operator; 1001 takes the place of a missing left one.
// A sign is unary only where an expression or a parenthesis starts.
void PlaceCell(Conversion *conversion, int cell, bool at_start) {
    if (!IsOperator(cell)) {
        conversion->Append(cell);
        return;
    }
    const bool sign = at_start && (cell == OP_PLUS || cell == OP_MINUS);
    if (RowOf(conversion->session, cell).Unary || sign) conversion->Append(CELL_NO_OPERAND);
    if (cell == OP_LEFT_PARENTHESIS)
        conversion->Push(cell);
    else if (cell == OP_RIGHT_PARENTHESIS)
        CloseParenthesis(conversion);
    else
        PlaceOperator(conversion, cell);
}

int Shunt(Conversion *conversion, const uint16_t *work) {
    conversion->Push(OP_LEFT_PARENTHESIS);
    bool at_start = true;
    for (int place = 0; work[place] != CELL_END; ++place) {
        PlaceCell(conversion, work[place], at_start);
        if (conversion->failed) return work[place];
        at_start = work[place] == OP_LEFT_PARENTHESIS;
    }
    CloseParenthesis(conversion);
    if (!conversion->failed && conversion->depth > 0) conversion->Fail("Parenthesis mismatch.");
    return conversion->failed ? int{OP_LEFT_PARENTHESIS} : int{CELL_END};
}

bool CountsAsOperator(int cell) { return cell >= MAX_FIELDS && cell != CELL_NO_OPERAND; }

// Every operator needs two operands and leaves one.
int CheckBalance(Conversion *conversion) {
    if (conversion->count == 0) return CELL_END;
    int operators = 0;
    for (int place = 0; place < conversion->count; ++place)
        if (CountsAsOperator(conversion->output[place])) ++operators;
    const int results = conversion->count - operators - 1;
    if (results == operators) return CELL_END;
    conversion->Fail(results < operators ? "Field missing for an operator"
                                         : "Operator missing for a field");
    return conversion->output[conversion->count - 1];
}

} // namespace

int InfixToPostfix(Session *session, const Cell *infix, Cell *postfix) {
    uint16_t work[MAX_CELLS + 1];
    Conversion conversion{};
    conversion.session = session;
    conversion.output = postfix;
    postfix[0] = CELL_END;
    if (const int cell = MoveFunctionsToCommas(&conversion, infix, work); cell != CELL_END)
        return cell;
    if (const int cell = Shunt(&conversion, work); cell != CELL_END) return cell;
    postfix[conversion.count] = CELL_END;
    return CheckBalance(&conversion);
}

} // namespace tessarine
