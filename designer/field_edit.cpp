#include "designer/field_edit.h"

#include <algorithm>
#include <iterator>

#include "designer/canvas_paint.h"
#include "designer/enabling.h"
#include "designer/item_table.h"
#include "designer/modify_expression.h"
#include "designer/properties.h"
#include "expr/validate.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/host_data.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int MODE_FOOTER = 1;
constexpr int MODE_DESCRIBED = 3; // the dialog asks for the field's name too

// What the host's sheet shows of a field.
struct PageRow {
    int value_type;
    uint32_t pages;
    uint32_t pages_of_calculation;
};

constexpr PageRow page_rows[] = {
    {TYPE_NUMERIC, 0x8443, 0xC443}, {TYPE_DOUBLE, 0x8443, 0xC443},  {TYPE_TEXT, 0x8243, 0xC243},
    {TYPE_DATE, 0x9043, 0xD043},    {TYPE_LOGICAL, 0x8843, 0xC843}, {TYPE_PICTURE, 1, 1},
};

uint32_t PagesOf(const FieldRecord &field) {
    const int type = field.ValueType;
    const auto *const row = std::ranges::find(page_rows, type, &PageRow::value_type);
    if (row == std::end(page_rows)) return 0;
    return field.FieldKind == FIELD_CALC ? row->pages_of_calculation : row->pages;
}

ItemRecord *SelectedFieldItem(Session *session) {
    ItemRecord *item = Selected(session);
    return item && item->ItemType == ITEM_FIELD ? item : nullptr;
}

// After an edit, behind which anything may be selected.
void RenewSelected(Session *session) {
    if (ItemRecord *item = SelectedFieldItem(session))
        CreateFieldLabel(session, item->FieldIndex, item->LabelText, item->width, item->FontIndex);
    RepaintCanvas(session);
}

void EditByHost(Session *session, const ItemRecord &item, uint32_t pages) {
    session->dialog.EditField = session->form.Fields[item.FieldIndex];
    session->dialog.DialogRow = item.SectionIndex;
    const int changed = AskHostForProperties(session, pages);
    if (session->State == STATE_ENDING) return;
    RenewSelected(session);
    if (changed) SetModified(session, 1);
}

bool IsCalculation(const Session *session, int field) {
    const FieldRecord &row = session->form.Fields[field];
    return row.InUse && row.FieldKind == FIELD_CALC;
}

int ModeOf(const Session *session) {
    const ItemRecord *item = Selected(session);
    return item && IsFooter(item->SectionIndex) ? MODE_FOOTER : MODE_DESCRIBED;
}

// An empty list has a value of no type.
void TakeExpression(FieldRecord *field, int type, const uint16_t *cells, const char *name) {
    if (cells[0] != CELL_END) field->ValueType = static_cast<int16_t>(type);
    CopyText(name, field->FieldName, sizeof field->FieldName);
    CopyCells(cells, field->FieldTokens);
}

} // namespace

void EditSelectedField(Session *session) {
    const ItemRecord *item = SelectedFieldItem(session);
    if (!item || !host_data.ItemPropertiesCallback) return;
    const FieldRecord &field = session->form.Fields[item->FieldIndex];
    if (field.FieldFlags & FIELD_POSTNET) return;
    if (!field.Modifiable) {
        ShowSessionBox(session, "This field can not be modified!", "Protected Field");
        return;
    }
    if (const uint32_t pages = PagesOf(field)) EditByHost(session, *item, pages);
}

int EditCalculation(Session *session, int field) {
    session->dialog.EditField = session->form.Fields[field];
    const bool named = *session->dialog.EditField.FieldName;
    uint16_t cells[MAX_CELLS];
    cells[0] = CELL_END;
    const int type =
        ModifyExp(session, session->form.Fields[field].FieldTokens, cells,
                  named ? "Calculation Field" : "New Calculation Field", ModeOf(session), nullptr);
    if (type < 0 || session->State == STATE_ENDING) return 0;
    if (!IsCalculation(session, field)) { // it went under the dialog
        ReleaseSymbols(session, cells);
        return 0;
    }
    TakeExpression(&session->form.Fields[field], type, cells, session->dialog.EditField.FieldName);
    return cells[0] != CELL_END;
}

void EditFieldExpression(Session *session) {
    if (!FormulaSelected(session)) return;
    const int edited = EditCalculation(session, Selected(session)->FieldIndex);
    if (session->State == STATE_ENDING) return;
    RenewSelected(session);
    if (edited) SetModified(session, 1);
}

} // namespace tessarine
