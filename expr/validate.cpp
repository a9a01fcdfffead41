#include "expr/validate.h"

#include <cstring>

#include "expr/evaluator.h"
#include "expr/postfix.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int MODE_FILTER = 0;

const char *CellText(const Session *session, int cell) {
    if (cell < MAX_FIELDS) return session->form.Fields[cell].FieldName;
    if (cell >= CELL_FIRST_OPERATOR && cell <= CELL_LAST_OPERATOR)
        return session->form.OperatorTable[cell - CELL_FIRST_OPERATOR].Text;
    return "";
}

} // namespace

int ValidateExp(Session *session, const Cell *cells, int mode) {
    uint16_t postfix[MAX_CELLS];
    if (InfixToPostfix(session, cells, postfix) != CELL_END) return 0;
    FieldRecord result;
    InitField(session, &result);
    if (EvaluateExpression(session, postfix, &result, 0) != CELL_END) return 0;
    if (mode == MODE_FILTER && postfix[0] != CELL_END && result.ValueType != TYPE_LOGICAL) {
        ShowSessionBox(session, "This expression must evaluate to a TRUE/FALSE result.");
        return 0;
    }
    return result.ValueType;
}

void CopyCells(const Cell *from, Cell *to) {
    int place = 0;
    for (; place < MAX_CELLS - 1 && from[place] != CELL_END; ++place) to[place] = from[place];
    to[place] = CELL_END;
}

int CopyCreateExp(Session *session, const Cell *source, Cell *target) {
    int place = 0;
    for (; place < MAX_CELLS - 1 && source[place] != CELL_END; ++place) {
        const int cell = source[place];
        target[place] = source[place];
        if (cell >= MAX_FIELDS) continue;
        FieldRecord *fields = session->form.Fields;
        if (fields[cell].FieldFlags & FIELD_SHARED) {
            ++fields[cell].RefCount;
            continue;
        }
        const int slot = NewFieldSlot(session);
        if (slot == NO_SLOT) {
            ShowSessionBox(session, "Ran out of field table(CopyCreateExp)!");
            target[place] = CELL_END;
            return 0;
        }
        fields[slot] = fields[cell];
        target[place] = static_cast<uint16_t>(slot);
    }
    target[place] = CELL_END;
    return 1;
}

int ExpressionText(const Session *session, const Cell *cells, char *text, int size) {
    size_t length = 0;
    size_t last_mention = 0;
    text[0] = 0;
    for (int place = 0; place < MAX_CELLS && cells[place] != CELL_END; ++place) {
        const char *piece = CellText(session, cells[place]);
        if (length + std::strlen(piece) + 1 > static_cast<size_t>(size)) break;
        if (cells[place] == cells[0]) last_mention = length;
        CopyText(piece, text + length, static_cast<size_t>(size) - length);
        length += std::strlen(piece);
    }
    return static_cast<int>(last_mention);
}

} // namespace tessarine
