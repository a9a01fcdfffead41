#include "designer/field_items.h"

#include <algorithm>
#include <iterator>

#include "designer/designer_state.h"
#include "designer/field_placement.h"
#include "designer/field_records.h"
#include "designer/host_items.h"
#include "designer/item_table.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "form/host_field.h"
#include "form/sections.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int DEFAULT_FONT = 0;
constexpr int WRAP_INDENT = 200; // form units
constexpr size_t NAME_SIZE = 100;
constexpr int MODE_FOOTER = 1;
constexpr int MODE_OTHER = 2;

// The row for the new item's field, NO_SLOT when no item can be made.
int BeginItem(Session *session, int section, int x, int y) {
    if (!FitsRecord(x) || !FitsRecord(y) || !MayAddTo(session, section)) return NO_SLOT;
    return TakeFieldRow(session);
}

int GiveUp(Session *session, int slot) {
    if (session->State != STATE_ENDING) ReleaseField(session, slot);
    return NO_ROW;
}

// The section's bar has the focus afterwards. A field without room at its place is released.
int PlaceFieldAt(Session *session, int slot, int section, int x, int y) {
    SelectBar(session, section);
    NewFieldRect(session, slot, x, y, DEFAULT_FONT, true);
    const RECT &place = DesignerOf(session).FocusRect;
    if (!FitsRecord(place) || !FitsRecord(place.right) || !FitsRecord(place.bottom))
        return GiveUp(session, slot);
    ItemRecord item = ItemInSection(session, ITEM_FIELD, section);
    GiveField(session, slot, &item);
    return AddItem(session, item);
}

bool MakeCalculation(Session *session, const char *text, FieldRecord *field) {
    const int mode = DesignerOf(session).ExpressionMode;
    uint16_t cells[MAX_CELLS];
    int32_t position = 0;
    int type = 0;
    if (GenerateSymbols(session, text, cells, &position, mode))
        type = ValidateExp(session, cells, mode);
    if (!type) {
        ReleaseSymbols(session, cells);
        return false;
    }
    field->ValueType = static_cast<int16_t>(type);
    std::copy(std::begin(cells), std::end(cells), field->FieldTokens);
    return true;
}

} // namespace

int AddNewDataField(Session *session, const char *name, int section, int x, int y, int wrap) {
    const int slot = BeginItem(session, section, x, y);
    if (slot == NO_SLOT) return NO_ROW;
    FieldRecord record = DefaultField(session);
    CopyText(name, record.FieldName, NAME_SIZE);
    // The host may have changed the form meanwhile, as under an expression.
    if (!AskHostForField(session, &record) || !MayAddTo(session, section)) {
        FreeFieldSlot(session, slot);
        return NO_ROW;
    }
    session->form.Fields[slot] = record;
    int32_t height = 0;
    int32_t width = 0;
    GetFieldSize(session, slot, DEFAULT_FONT, &height, &width);
    const RECT bar = RectOf(*BarOf(session, section));
    if (wrap && x + width > bar.right) {
        x = bar.left + WRAP_INDENT;
        y += height;
    }
    const bool fits = FitsRecord(x + width) && FitsRecord(y + height);
    const bool too_low = y + height > bar.bottom;
    if (!fits || (too_low && !GrowSection(session, section, y, 2 * height)))
        return GiveUp(session, slot);
    return PlaceFieldAt(session, slot, section, x, y);
}

int AddNewCalcField(Session *session, const char *text, int section, const char *description, int x,
                    int y) {
    const int slot = BeginItem(session, section, x, y);
    if (slot == NO_SLOT) return NO_ROW;
    FieldRecord *field = &session->form.Fields[slot];
    *field = CalculationField(session, description);
    DesignerOf(session).ExpressionMode = IsFooter(section) ? MODE_FOOTER : MODE_OTHER;
    if (!MakeCalculation(session, text, field)) {
        FreeFieldSlot(session, slot);
        return NO_ROW;
    }
    if (!MayAddTo(session, section)) return GiveUp(session, slot);
    return PlaceFieldAt(session, slot, section, x, y);
}

int AddNewSysField(Session *session, int index, int section, int x, int y) {
    if (index < 0 || index >= static_cast<int>(std::size(session->form.SystemFields)))
        return NO_ROW;
    const int slot = BeginItem(session, section, x, y);
    if (slot == NO_SLOT) return NO_ROW;
    session->form.Fields[slot] = SystemField(session, index);
    return PlaceFieldAt(session, slot, section, x, y);
}

} // namespace tessarine
