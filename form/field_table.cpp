#include "form/field_table.h"

#include <cstring>

#include "form/defaults.h"
#include "form/modified.h"

namespace tessarine {

namespace {

bool IsReserved(int row) { return row == 0 || row == 32; }

int AppendFreeRow(Session *session) {
    const int row = session->form.FieldCount++;
    InitField(session, &session->form.Fields[row]);
    FreeFieldSlot(session, row);
    return row;
}

bool SameConstant(const FieldRecord &a, const FieldRecord &b) {
    if (a.ValueType == TYPE_TEXT) return !std::strcmp(a.FieldName, b.FieldName);
    if (a.ValueType == TYPE_DOUBLE) return a.DoubleValue == b.DoubleValue;
    return a.LongValue == b.LongValue;
}

bool SameOperand(const FieldRecord &a, const FieldRecord &b) {
    return a.ValueType == b.ValueType && a.FieldKind == b.FieldKind && a.HostTable == b.HostTable &&
           a.HostField == b.HostField && !lstrcmpiA(a.FieldName, b.FieldName) &&
           (a.FieldKind != FIELD_CONSTANT || SameConstant(a, b));
}

} // namespace

int NewFieldSlot(Session *session) {
    FormState &form = session->form;
    for (int row = 0; row < form.FieldCount; ++row)
        if (!form.Fields[row].InUse && !IsReserved(row)) return row;
    if (form.FieldCount >= form.FieldCapacity) return NO_SLOT;
    if (IsReserved(form.FieldCount)) AppendFreeRow(session);
    if (form.FieldCount >= form.FieldCapacity) return NO_SLOT;
    return AppendFreeRow(session);
}

void FreeFieldSlot(Session *session, int row) {
    FieldRecord *field = &session->form.Fields[row];
    field->FieldKind = FIELD_FREE;
    field->InUse = 0;
    field->FieldTokens[0] = CELL_END; // an open dialog mustn't give its list up once more
}

void ReleaseField(Session *session, int row) {
    if (row < 0 || row >= session->form.FieldCount) return;
    FieldRecord *field = &session->form.Fields[row];
    if (!field->InUse) return;
    if (field->FieldKind == FIELD_CALC) {
        field->InUse = 0; // an expression that names its own field must not come back here
        ReleaseSymbols(session, field->FieldTokens);
        field->InUse = 1;
    }
    const bool shared = field->FieldFlags & FIELD_SHARED;
    if (shared && field->RefCount > 0) --field->RefCount;
    if (!shared || field->RefCount < 1) {
        FreeFieldSlot(session, row);
        field->FieldTokens[0] = CELL_END; // its editor, if one is open, releases what stands there
    }
    SetModified(session, 1);
}

int ReleaseSymbols(Session *session, const Cell *cells) {
    for (int place = 0; place < MAX_CELLS && cells[place] != CELL_END; ++place)
        if (cells[place] < MAX_FIELDS) ReleaseField(session, cells[place]);
    return 1;
}

void CountReferences(Session *session, const Cell *cells) {
    for (int place = 0; place < MAX_CELLS && cells[place] != CELL_END; ++place) {
        if (cells[place] >= session->form.FieldCount) continue;
        FieldRecord *field = &session->form.Fields[cells[place]];
        if (field->FieldFlags & FIELD_SHARED) ++field->RefCount;
    }
}

// A record whose TableIndex is 3 finds no match: that is the record count, and just as much the
// user field in row 3.
int FindSharedField(const Session *session, const FieldRecord *record) {
    if (record->TableIndex == SYSTEM_REC_COUNT) return -1;
    for (int row = 0; row < session->form.FieldCount; ++row) {
        const FieldRecord &field = session->form.Fields[row];
        if (field.InUse && (field.FieldFlags & FIELD_SHARED) && SameOperand(field, *record))
            return row;
    }
    return -1;
}

} // namespace tessarine
