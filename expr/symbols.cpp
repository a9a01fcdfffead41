#include "expr/symbols.h"

#include <cstdio>
#include <cstring>
#include <iterator>

#include "expr/date_text.h"
#include "expr/operations.h"
#include "expr/tokenizer.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "form/host_field.h"
#include "form/modified.h"
#include "frame/message_box.h"
#include "frame/text.h"
#include "frame/text_numbers.h"

namespace tessarine {

namespace {

constexpr int MOST_CELLS = 99;
constexpr size_t TOKEN_SIZE = 110;
constexpr int NO_CELL = 0;

bool Refuse(const Session *session, const char *format, const char *token) {
    char text[200];
    std::snprintf(text, sizeof text, format, token);
    ShowSessionBox(session, text);
    return false;
}

// The code of an operator by its text; a restricted row belongs to mode 1 alone.
int OperatorCode(const Session *session, const char *text, int mode) {
    for (int row = 0; row < OPERATOR_ROWS; ++row) {
        const OperatorRow &op = session->form.OperatorTable[row];
        if ((!op.Restricted || mode == 1) && !std::strcmp(op.Text, text))
            return CELL_FIRST_OPERATOR + row;
    }
    return NO_CELL;
}

bool MakeSystemField(const Session *session, FieldRecord *record) {
    const char *name = record->FieldName + std::strlen("SYS->");
    for (int row = 0; row < static_cast<int>(std::size(session->form.SystemFields)); ++row) {
        const SystemFieldRow &field = session->form.SystemFields[row];
        if (std::strcmp(field.Name, name)) continue;
        record->FieldKind = FIELD_SYSTEM;
        record->ValueType = static_cast<int16_t>(field.ValueType);
        record->TableIndex = static_cast<int16_t>(row);
        if (row == SYSTEM_REC_COUNT) {
            record->SummaryType = SUMMARY_COUNT;
            record->FieldFlags &= static_cast<uint16_t>(~FIELD_RETAIN);
        }
        return true;
    }
    return Refuse(session, "Invalid system field: %s", record->FieldName);
}

bool MakeUserField(const Session *session, FieldRecord *record) {
    const char *name = record->FieldName + std::strlen("DLG->");
    for (int row = 0; row < MAX_USER_FIELDS; ++row) {
        const UserFieldRecord &user = session->form.UserFields[row];
        if (!user.InUse || std::strcmp(user.UserName, name)) continue;
        record->FieldKind = FIELD_USER;
        record->ValueType = user.ValueType;
        record->TableIndex = static_cast<int16_t>(row);
        return true;
    }
    return Refuse(session, "Invalid user field: %s", record->FieldName);
}

// Data fields are the host's; without its routine there is none.
bool MakeDataField(const Session *session, FieldRecord *record) {
    char name[sizeof record->FieldName];
    CopyText(record->FieldName, name, sizeof name);
    record->FieldKind = FIELD_DATA;
    if (!AskHostForField(session, record)) return Refuse(session, "Invalid data field: %s", name);
    if (record->ValueType == TYPE_PICTURE)
        return Refuse(session, "Picture field not allowed: %s", name);
    return true;
}

bool MakeNamedField(const Session *session, FieldRecord *record) {
    if (HasPrefix(record->FieldName, "SYS->")) return MakeSystemField(session, record);
    if (HasPrefix(record->FieldName, "DLG->")) return MakeUserField(session, record);
    return MakeDataField(session, record);
}

bool MakeText(const Session *session, FieldRecord *record) {
    record->FieldKind = FIELD_CONSTANT;
    int32_t date = 0;
    const DateShape shape = ParseDateText(session, record->FieldName, &date);
    if (shape == DateShape::Invalid) return Refuse(session, "Invalid date: %s", record->FieldName);
    if (shape == DateShape::Valid) {
        record->ValueType = TYPE_DATE;
        record->LongValue = date;
        return true;
    }
    record->ValueType = TYPE_TEXT;
    record->FieldWidth = static_cast<int16_t>(std::strlen(record->FieldName) + 1);
    return true;
}

bool MakeWholeNumber(const Session *, FieldRecord *record) {
    record->FieldKind = FIELD_CONSTANT;
    record->ValueType = TYPE_NUMERIC;
    record->LongValue = WholeNumberIn(record->FieldName);
    return true;
}

bool MakeDecimalNumber(const Session *, FieldRecord *record) {
    record->FieldKind = FIELD_CONSTANT;
    record->ValueType = TYPE_DOUBLE;
    record->DoubleValue = NumberIn(record->FieldName);
    return true;
}

bool MakeLogical(const Session *, FieldRecord *record) {
    record->FieldKind = FIELD_CONSTANT;
    record->ValueType = TYPE_LOGICAL;
    record->LongValue = record->FieldName[1] == 'T';
    return true;
}

struct OperandRow {
    char token_class;
    bool (*make)(const Session *session, FieldRecord *record);
};

constexpr OperandRow operand_rows[] = {
    {'F', MakeNamedField},    {'S', MakeText},    {'N', MakeWholeNumber},
    {'D', MakeDecimalNumber}, {'B', MakeLogical},
};

bool IsSummaryOperator(int cell) { return cell >= OP_TOTAL && cell <= OP_COUNT; }

// The row of a new or shared operand; NO_CELL after a message.
int OperandCell(Session *session, char token_class, const char *token, int cell_before) {
    FieldRecord record;
    InitField(session, &record);
    CopyText(token, record.FieldName, sizeof record.FieldName);
    for (const OperandRow &row : operand_rows)
        if (row.token_class == token_class && !row.make(session, &record)) return NO_CELL;
    const bool shared = !IsSummaryOperator(cell_before);
    if (shared) {
        record.FieldFlags |= FIELD_SHARED;
        const int found = FindSharedField(session, &record);
        if (found >= 0) {
            ++session->form.Fields[found].RefCount;
            return found;
        }
    }
    const int slot = NewFieldSlot(session);
    if (slot == NO_SLOT) {
        ShowSessionBox(session, "Ran out of field table!");
        return NO_CELL;
    }
    record.RefCount = shared;
    session->form.Fields[slot] = record;
    return slot;
}

int NamedOperator(const Session *session, const char *token, int mode, const char *refusal) {
    const int code = OperatorCode(session, token, mode);
    if (code == NO_CELL) Refuse(session, refusal, token);
    return code;
}

int CellOf(Session *session, char token_class, const char *token, int cell_before, int mode) {
    switch (token_class) {
    case 'L': return OP_LEFT_PARENTHESIS;
    case 'R': return OP_RIGHT_PARENTHESIS;
    case 'C': return OP_COMMA;
    case 'O':
    case 'G': return NamedOperator(session, token, mode, "Invalid function or dot operator: %s");
    case 'P': return NamedOperator(session, token, 1, "Invalid operator: %s");
    default: return OperandCell(session, token_class, token, cell_before);
    }
}

} // namespace

int GenerateSymbols(Session *session, const char *text, Cell *cells, int32_t *errorPosition,
                    int mode) {
    int count = 0;
    int position = 0;
    const auto finish = [&](int result) {
        cells[count] = CELL_END;
        *errorPosition = position;
        return result;
    };
    for (;;) {
        char token[TOKEN_SIZE];
        int32_t consumed = 0;
        const char token_class = NextToken(session, text + position, token, &consumed);
        position += consumed;
        if (token_class == 'Z') return finish(1);
        if (token_class == 'E') return finish(0);
        if (count == MOST_CELLS) {
            ShowSessionBox(session, "Too many field names, operators, or functions.",
                           "Expression Too Long");
            return finish(0);
        }
        const int cell_before = count ? cells[count - 1] : NO_CELL;
        const int cell = CellOf(session, token_class, token, cell_before, mode);
        if (cell == NO_CELL) return finish(0);
        if (cell < CELL_FIRST_OPERATOR) SetModified(session, 1);
        cells[count++] = static_cast<uint16_t>(cell);
    }
}

} // namespace tessarine
