#include "designer/section_fields.h"

#include <cstdio>
#include <cstring>

#include "designer/cell_edit.h"
#include "designer/dialogs/section_dialogs.h"
#include "designer/item_table.h"
#include "form/field_table.h"
#include "form/sections.h"
#include "frame/dialogs.h"
#include "frame/fatal_error.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int MODE_OTHER = 2;

// A row of the break table under the hands of a dialog.
struct BreakRow {
    int place;
    BreakFieldRecord fields;
};

FieldRecord &SortField(Session *session, const BreakRow &row) {
    return session->form.Fields[row.fields.SortField];
}

FieldRecord &BreakField(Session *session, const BreakRow &row) {
    return session->form.Fields[row.fields.BreakField];
}

// Under a dialog the host may have worked on the form.
bool Stands(const Session *session, const BreakRow &row) {
    return session->State != STATE_ENDING && row.place < session->form.BreakCount &&
           !std::memcmp(&session->form.Breaks[row.place], &row.fields, sizeof row.fields);
}

// The row of the selected sort header; false when no sort header is selected.
bool TakeSelected(Session *session, BreakRow *row) {
    const ItemRecord *item = Selected(session);
    if (!item || !IsSortHeader(item->SectionIndex)) return false;
    row->place = FindBreak(session, item->SectionIndex);
    if (row->place == NO_ROW)
        FatalError(session, "Invalid Section, File Corruption Detected!", CODE_PRINTER);
    row->fields = session->form.Breaks[row->place];
    return true;
}

void FollowSort(const FieldRecord &sort, FieldRecord *field) {
    CopyText(sort.FieldName, field->FieldName, sizeof field->FieldName);
    field->ValueType = sort.ValueType;
    field->FieldWidth = sort.FieldWidth;
    field->Decimals = sort.Decimals;
    field->HostTable = sort.HostTable;
    field->HostField = sort.HostField;
}

void BeginCalculation(FieldRecord *field, int number) {
    field->FieldKind = FIELD_CALC;
    field->ValueType = TYPE_NUMERIC;
    std::snprintf(field->FieldName, sizeof field->FieldName, "COMP_EXP%d", number);
    field->FieldTokens[0] = CELL_END;
}

enum class Chosen { Nothing, Field, Calculation };

Chosen ChooseBreak(Session *session, const BreakRow &row) {
    session->dialog.DialogRow = row.fields.BreakField;
    const INT_PTR result = RunDialog(session, "SecBreakParam", SecBreakParam, 0);
    if (result < DIALOG_OK || !Stands(session, row)) return Chosen::Nothing;
    FieldRecord *field = &session->dialog.EditField;
    if (*field->FieldName) return Chosen::Field;
    BeginCalculation(field, row.place + 1);
    return Chosen::Calculation;
}

// What the row's list held is given up when the break gets another, once.
class HeldCells {
public:
    HeldCells(Session *session, const FieldRecord &field)
        : session_(session), held_(field.FieldKind == FIELD_CALC) {
        std::memcpy(cells_, field.FieldTokens, sizeof cells_);
    }
    void Released() { held_ = false; } // by the editor
    void Release() {
        if (held_) ReleaseSymbols(session_, cells_);
        held_ = false;
    }

private:
    Session *session_;
    bool held_;
    uint16_t cells_[MAX_CELLS];
};

enum class Written { Nothing, Empty, Expression };

// Under the dialog another field may be edited in EditField, and the row's own list may go.
Written WriteCalculation(Session *session, const BreakRow &row, bool own) {
    FieldRecord field = session->dialog.EditField;
    const Cell *cells = own ? BreakField(session, row).FieldTokens : field.FieldTokens;
    const int type = EditCells(session, cells, field.FieldTokens, field.FieldName, MODE_OTHER);
    if (type == CELLS_KEPT || session->State == STATE_ENDING) return Written::Nothing;
    if (!Stands(session, row)) {
        ReleaseSymbols(session, field.FieldTokens);
        return Written::Nothing;
    }
    field.ValueType = static_cast<int16_t>(type);
    session->dialog.EditField = field;
    return field.FieldTokens[0] == CELL_END ? Written::Empty : Written::Expression;
}

// True when EditField holds the new break.
bool EditBreak(Session *session, const BreakRow &row, HeldCells *held) {
    FieldRecord *field = &session->dialog.EditField;
    *field = BreakField(session, row);
    bool own = true; // EditField has the row's own list
    for (;;) {
        if (field->FieldKind != FIELD_CALC) {
            const Chosen chosen = ChooseBreak(session, row);
            if (chosen != Chosen::Calculation) return chosen == Chosen::Field;
            own = false;
        }
        const Written written = WriteCalculation(session, row, own);
        if (!Stands(session, row)) return false;
        if (written != Written::Nothing && own) held->Released();
        if (written == Written::Expression) return true;
        *field = SortField(session, row);
        // A list that is released already mustn't stay, even if the user cancels now.
        if (written == Written::Empty && own) BreakField(session, row) = *field;
        own = false;
    }
}

} // namespace

int FindBreak(const Session *session, int section) {
    const int header = IsSortFooter(section) ? HeaderOf(section) : section;
    for (int row = 0; row < session->form.BreakCount; ++row)
        if (session->form.Breaks[row].SectionIndex == header) return row;
    return NO_ROW;
}

int FindSortField(const Session *session, int section) {
    const int row = FindBreak(session, section);
    return row == NO_ROW ? NO_ROW : session->form.Breaks[row].SortField;
}

int EditSortField(Session *session) {
    BreakRow row;
    if (!TakeSelected(session, &row)) return 0;
    const bool equal =
        !std::strcmp(SortField(session, row).FieldName, BreakField(session, row).FieldName);
    session->dialog.DialogRow = row.fields.SortField;
    const bool stored = RunDialog(session, "SecSortParam", SecSortParam, 0) == DIALOG_OK;
    if (stored && equal && Stands(session, row))
        FollowSort(SortField(session, row), &BreakField(session, row));
    return 1;
}

int EditSectionBreak(Session *session) {
    BreakRow row;
    if (!TakeSelected(session, &row)) return 0;
    HeldCells held(session, BreakField(session, row));
    if (!EditBreak(session, row, &held)) return 1;
    held.Release();
    BreakField(session, row) = session->dialog.EditField;
    return 1;
}

} // namespace tessarine
