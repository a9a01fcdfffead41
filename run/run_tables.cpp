#include "run/run_tables.h"

#include <algorithm>
#include <cstring>

#include "frame/fatal_error.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/page_store.h"

namespace tessarine {

namespace {

constexpr size_t RowBytes(int rows) { return static_cast<size_t>(rows) * sizeof(FieldRecord); }

// How many characters the block of a text row holds: it was allocated with FieldWidth + 2 bytes,
// to which every allocation adds one. However narrow its row, a user field's block holds a whole
// answer and a system field's the report's name.
size_t TextRoom(const FieldRecord *row) {
    const size_t width = static_cast<size_t>(std::max<int>(row->FieldWidth, 0)) + 2;
    if (row->FieldKind == FIELD_USER) return std::max(width, sizeof(UserFieldRecord::UserText));
    if (row->FieldKind == FIELD_SYSTEM) return std::max(width, sizeof(FormHeader::ReportName));
    return width;
}

void AllocRowText(Session *session, FieldRecord *row, const char *failure) {
    row->TextValue = static_cast<char *>(OurAlloc(TextRoom(row)));
    if (!row->TextValue) FatalError(session, failure, CODE_MEMORY);
    row->TextValue[0] = 0;
}

FieldRecord *AllocRows(Session *session, HGLOBAL *handle, int rows) {
    *handle = sAlloc(RowBytes(rows));
    auto *table = static_cast<FieldRecord *>(LockHandle(*handle));
    if (!table) FatalError(session, "Ran Out of Memory (AllocRepMem(1))", CODE_MEMORY);
    ZeroMemory(table, RowBytes(rows));
    return table;
}

void ShrinkFieldTable(Session *session) {
    FormState &form = session->form;
    UnlockHandle(form.FieldMemory);
    const HGLOBAL resized = sReAlloc(form.FieldMemory, RowBytes(form.FieldCount + 1));
    if (resized) form.FieldMemory = resized;
    form.Fields = static_cast<FieldRecord *>(LockHandle(form.FieldMemory));
    if (!resized) FatalError(session, "Ran Out of Memory (AllocRepMem(2))", CODE_MEMORY);
    form.FieldCapacity = form.FieldCount;
}

bool IsUserRow(const FieldRecord &field) {
    return field.FieldKind == FIELD_USER && field.TableIndex >= 0 &&
           field.TableIndex < MAX_USER_FIELDS;
}

void AllocFieldTexts(Session *session) {
    FormState &form = session->form;
    for (int row = 0; row < form.FieldCount; ++row) {
        FieldRecord *field = &form.Fields[row];
        FieldRecord *input = &session->run.InputTable[row];
        field->TextValue = nullptr;
        input->ValueType = field->ValueType;
        if (field->ValueType != TYPE_TEXT) continue;
        if (IsUserRow(*field)) field->FieldWidth = form.UserFields[field->TableIndex].UserWidth;
        input->FieldKind = field->FieldKind;
        input->FieldWidth = field->FieldWidth;
        AllocRowText(session, field, "Ran Out of Memory(2)");
        AllocRowText(session, input, "Ran Out of Memory(2)");
    }
}

void AllocBreakTexts(Session *session) {
    for (int level = 0; level < session->form.BreakCount; ++level) {
        const FieldRecord &sort = session->form.Fields[session->form.Breaks[level].SortField];
        FieldRecord *row = &session->run.BreakTable[level];
        row->ValueType = sort.ValueType;
        row->FieldKind = sort.FieldKind;
        row->FieldWidth = sort.FieldWidth;
        if (row->ValueType == TYPE_TEXT) AllocRowText(session, row, "Ran Out of Memory(3)");
    }
}

// A calculation of another type than its field's leaves its text in the row all the same.
bool MayOwnText(const FieldRecord &row) {
    return row.ValueType == TYPE_TEXT || row.FieldKind == FIELD_CALC;
}

void FreeTexts(FieldRecord *table, int rows) {
    for (int row = 0; table && row < rows; ++row) {
        if (!MayOwnText(table[row])) continue;
        OurFree(table[row].TextValue);
        table[row].TextValue = nullptr;
    }
}

void FreeRows(HGLOBAL *handle, FieldRecord **table) {
    if (!*handle) return;
    UnlockHandle(*handle);
    FreeHandle(*handle);
    *handle = nullptr;
    *table = nullptr;
}

} // namespace

Session *RunOf(int sessionId) {
    Session *session = GetSessionPointer(nullptr, sessionId);
    const bool feeds =
        session && (session->State == STATE_READY || session->State == STATE_RUNNING);
    return feeds && session->UnwindPoint == 0 ? session : nullptr;
}

void AllocRepMem(Session *session) {
    RunState &run = session->run;
    if (!session->OutputToPrinter) AllocPageStore(session);
    run.InputTable = AllocRows(session, &run.InputMemory, session->form.FieldCount + 1);
    run.BreakTable = AllocRows(session, &run.BreakMemory, session->form.BreakCount + 1);
    ShrinkFieldTable(session);
    AllocFieldTexts(session);
    AllocBreakTexts(session);
}

void FreeRunTables(Session *session) {
    RunState &run = session->run;
    if (run.InputTable) FreeTexts(session->form.Fields, session->form.FieldCount);
    FreeTexts(run.InputTable, session->form.FieldCount);
    FreeTexts(run.BreakTable, session->form.BreakCount);
    FreeRows(&run.BreakMemory, &run.BreakTable);
    FreeRows(&run.InputMemory, &run.InputTable);
}

void RenewRowText(Session *session, FieldRecord *row) {
    OurFree(row->TextValue);
    AllocRowText(session, row, "Ran Out of Memory(2)");
}

void SetRowText(FieldRecord *row, const char *text) {
    if (row->TextValue) CopyText(text, row->TextValue, TextRoom(row) + 1);
}

namespace {

// A constant's name is the literal as written, so its text lies between the quotes.
void SetConstantText(FieldRecord *field) {
    const size_t length = std::strlen(field->FieldName);
    char text[sizeof field->FieldName] = "";
    if (length >= 2) CopyText(field->FieldName + 1, text, length - 1);
    SetRowText(field, text);
}

void TakeUserValue(FieldRecord *field, const UserFieldRecord &user) {
    if (field->ValueType == TYPE_TEXT) {
        SetRowText(field, user.UserText);
        return;
    }
    field->LongValue = user.LongValue;
    field->DoubleValue = user.DoubleValue;
}

} // namespace

void SetStartValues(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) {
        FieldRecord *field = &session->form.Fields[row];
        if (field->ValueType == TYPE_TEXT) SetRowText(field, "");
        if (field->FieldKind == FIELD_CONSTANT && field->ValueType == TYPE_TEXT)
            SetConstantText(field);
        if (IsUserRow(*field)) TakeUserValue(field, session->form.UserFields[field->TableIndex]);
    }
}

void CopyToInputTable(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) {
        const FieldRecord &field = session->form.Fields[row];
        FieldRecord *input = &session->run.InputTable[row];
        char *own_text = input->TextValue;
        *input = field;
        input->TextValue = own_text;
        if (field.ValueType == TYPE_TEXT) SetRowText(input, field.TextValue);
    }
}

void CopyToBreakTable(Session *session) {
    for (int level = 0; level < session->form.BreakCount; ++level) {
        FieldRecord *row = &session->run.BreakTable[level];
        char *own_text = row->TextValue;
        *row = session->form.Fields[session->form.Breaks[level].SortField];
        row->TextValue = own_text;
    }
}

} // namespace tessarine
