#include "designer/field_items.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <limits>

#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "expr/symbols.h"
#include "expr/validate.h"
#include "form/defaults.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "form/host_field.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int NO_ITEM = -1;
constexpr int IDLE = -1;
constexpr int DEFAULT_FONT = 0;
constexpr int ALL_SIDES = SIDE_LEFT | SIDE_RIGHT | SIDE_TOP | SIDE_BOTTOM;
constexpr int WRAP_INDENT = 200; // form units
constexpr int BAR_INSET = 2;     // form units
constexpr size_t NAME_SIZE = 100;
constexpr int MODE_FOOTER = 1;
constexpr int MODE_OTHER = 2;
constexpr int DESCRIPTION_LENGTH = 43;

bool InRange(int units) {
    return units >= std::numeric_limits<int16_t>::min() &&
           units <= std::numeric_limits<int16_t>::max();
}

ItemRecord *BarOf(Session *session, int section) {
    return &session->form.Items[session->form.Sections[section].BarItem];
}

bool IsInForm(const Session *session, int section) {
    return section >= 0 && section < MAX_SECTIONS && session->form.Sections[section].InUse;
}

void FocusOnBar(Session *session, int section) {
    session->form.SelectedItem = session->form.Sections[section].BarItem;
}

// The row for the new item's field, NO_SLOT when no item can be made.
int BeginField(Session *session, int section, int x, int y) {
    if (DesignerOf(session).PendingCommand != IDLE) return NO_SLOT;
    if (session->form.TotalItems >= MAX_ITEMS) {
        ShowSessionBox(session, "Item Table Full!");
        return NO_SLOT;
    }
    if (!IsInForm(session, section) || !InRange(x) || !InRange(y)) return NO_SLOT;
    const int slot = NewFieldSlot(session);
    if (slot == NO_SLOT) ShowSessionBox(session, "Ran out of TempFld table!");
    return slot;
}

// What a new item is centred in.
RECT PlacingArea(Session *session, int section) {
    const int caption = session->form.Header.BarHeight;
    if (session->LabelMode) {
        const ItemRecord &label = session->form.Items[0];
        return {label.x, label.y + caption, label.x + label.width, label.y + label.height};
    }
    const ItemRecord &bar = *BarOf(session, section);
    const int left = bar.x + BAR_INSET;
    const int top = bar.y + caption + BAR_INSET;
    return {left, top, left + bar.width - BAR_INSET, top + bar.height - BAR_INSET};
}

RECT FieldRect(Session *session, int slot, int section, int x, int y) {
    int32_t height = 0;
    int32_t width = 0;
    GetFieldSize(session, slot, DEFAULT_FONT, &height, &width);
    const RECT area = PlacingArea(session, section);
    const int left = x >= 0 ? x : (area.left + area.right - width) / 2;
    const int top = y >= 0 ? y : (area.top + area.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

// Numbers stand to the right, and one that is placed in a footer is a total.
void SettleByType(FieldRecord *field, ItemRecord *item) {
    if (field->ValueType == TYPE_PICTURE) item->OutlineSides = ALL_SIDES;
    if (field->ValueType != TYPE_NUMERIC && field->ValueType != TYPE_DOUBLE) return;
    item->ItemFlags &= static_cast<uint16_t>(~(FLAG_LEFT | FLAG_CENTER));
    item->ItemFlags |= FLAG_RIGHT;
    if (IsFooter(item->SectionIndex) && field->FieldKind != FIELD_SYSTEM)
        field->SummaryType = SUMMARY_TOTAL;
}

// A field item with the rectangle FocusRect.
ItemRecord MakeFieldItem(Session *session, int slot, int section) {
    const RECT &place = DesignerOf(session).FocusRect;
    ItemRecord item = DefaultItem(session);
    item.ItemType = ITEM_FIELD;
    item.x = static_cast<int16_t>(place.left);
    item.y = static_cast<int16_t>(place.top);
    item.width = static_cast<int16_t>(place.right - place.left);
    item.height = static_cast<int16_t>(place.bottom - place.top);
    item.SectionIndex = static_cast<int16_t>(section);
    item.FieldIndex = static_cast<int16_t>(slot);
    CreateFieldLabel(session, slot, item.LabelText, item.width, DEFAULT_FONT);
    SettleByType(&session->form.Fields[slot], &item);
    return item;
}

// The section's bar has the focus afterwards. A field without room at its place is released.
int PlaceFieldAt(Session *session, int slot, int section, int x, int y) {
    const RECT place = FieldRect(session, slot, section, x, y);
    if (!InRange(place.right) || !InRange(place.bottom)) {
        ReleaseField(session, slot);
        return NO_ITEM;
    }
    DesignerOf(session).FocusRect = place;
    const ItemRecord item = MakeFieldItem(session, slot, section);
    // A section's bar comes before its items, also before one that lies on the caption.
    const int row =
        std::max(InsertionRow(session, section), session->form.Sections[section].BarItem + 1);
    ShiftItems(session, row, 1, SHIFT_OPEN);
    session->form.Items[row] = item;
    FocusOnBar(session, section);
    SetModified(session, 1);
    return row;
}

// Everything from y on moves down by what the section grows.
bool GrowSection(Session *session, int section, int y, int growth) {
    if (!InRange(session->form.ReportHeight + growth)) return false;
    ItemRecord *bar = BarOf(session, section);
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        if (item.ItemType != ITEM_GROUP && item.y >= y)
            item.y = static_cast<int16_t>(item.y + growth);
    }
    bar->height = static_cast<int16_t>(bar->height + growth);
    session->form.ReportHeight += growth;
    return true;
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
    const int slot = BeginField(session, section, x, y);
    if (slot == NO_SLOT) return NO_ITEM;
    FieldRecord record;
    InitField(session, &record);
    CopyText(name, record.FieldName, NAME_SIZE);
    if (!AskHostForField(session, &record)) return NO_ITEM;
    session->form.Fields[slot] = record;
    FocusOnBar(session, section);
    int32_t height = 0;
    int32_t width = 0;
    GetFieldSize(session, slot, DEFAULT_FONT, &height, &width);
    const ItemRecord bar = *BarOf(session, section);
    if (wrap && x + width > bar.x + bar.width) {
        x = bar.x + WRAP_INDENT;
        y += height;
    }
    const bool fits = InRange(x + width) && InRange(y + height);
    const bool too_low = y + height > bar.y + bar.height;
    if (!fits || (too_low && !GrowSection(session, section, y, 2 * height))) {
        ReleaseField(session, slot);
        return NO_ITEM;
    }
    return PlaceFieldAt(session, slot, section, x, y);
}

int AddNewCalcField(Session *session, const char *text, int section, const char *description, int x,
                    int y) {
    const int slot = BeginField(session, section, x, y);
    if (slot == NO_SLOT) return NO_ITEM;
    FieldRecord record;
    InitField(session, &record);
    record.FieldKind = FIELD_CALC;
    std::snprintf(record.FieldName, sizeof record.FieldName, "CALC->%.*s", DESCRIPTION_LENGTH,
                  description);
    FieldRecord *field = &session->form.Fields[slot];
    *field = record; // in use from here on: the compiler takes slots too
    DesignerOf(session).ExpressionMode = IsFooter(section) ? MODE_FOOTER : MODE_OTHER;
    if (!MakeCalculation(session, text, field)) {
        FreeFieldSlot(session, slot);
        return NO_ITEM;
    }
    FocusOnBar(session, section);
    return PlaceFieldAt(session, slot, section, x, y);
}

int AddNewSysField(Session *session, int index, int section, int x, int y) {
    if (index < 0 || index >= static_cast<int>(std::size(session->form.SystemFields)))
        return NO_ITEM;
    const int slot = BeginField(session, section, x, y);
    if (slot == NO_SLOT) return NO_ITEM;
    const SystemFieldRow &row = session->form.SystemFields[index];
    FieldRecord *field = &session->form.Fields[slot];
    InitField(session, field);
    field->FieldKind = FIELD_SYSTEM;
    std::snprintf(field->FieldName, sizeof field->FieldName, "SYS->%.90s", row.Name);
    field->ValueType = static_cast<int16_t>(row.ValueType);
    field->FieldWidth = static_cast<int16_t>(row.Width);
    field->TableIndex = static_cast<int16_t>(index);
    FocusOnBar(session, section);
    return PlaceFieldAt(session, slot, section, x, y);
}

} // namespace tessarine
