#include "designer/enabling.h"

#include <algorithm>

#include "commands.h"
#include "designer/command_rows.h"
#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "form/sections.h"

namespace tessarine {

namespace {

constexpr int ARRANGE_PLACE = 7;

constexpr SubmenuRow submenus[] = {{ARRANGE_PLACE, 0, GroupSelected},
                                   {ARRANGE_PLACE, 1, GroupSelected},
                                   {ARRANGE_PLACE, 2, GroupSelected}};

bool TypeSelected(const Session *session, int type) {
    const ItemRecord *item = Selected(session);
    return item && item->ItemType == type;
}

// The field of the selected field item, or null.
const FieldRecord *SelectedField(const Session *session) {
    if (!TypeSelected(session, ITEM_FIELD)) return nullptr;
    const int row = Selected(session)->FieldIndex;
    return row >= 0 && row < MAX_FIELDS ? &session->form.Fields[row] : nullptr;
}

bool InUse(const UserFieldRecord &row) { return row.InUse; }

UINT MenuState(bool enabled) { return enabled ? MF_ENABLED : MF_GRAYED; }

} // namespace

bool Always(const Session *) { return true; }
bool FormIsModified(const Session *session) { return session->form.FormModified; }
bool PrinterIsNamed(const Session *session) { return *session->printer.DeviceName; }
bool UndoStands(const Session *session) { return session->designer->UndoImage; }

bool ClipCanBePasted(const Session *session) {
    return session->designer->ClipCount > 0 &&
           IsClipboardFormatAvailable(session->device.ClipFormat);
}

bool PictureOnClipboard(const Session *) { return IsClipboardFormatAvailable(CF_BITMAP); }

bool UserFieldInUse(const Session *session) {
    return std::ranges::any_of(session->form.UserFields, InUse);
}

bool UserFieldFree(const Session *session) {
    return !std::ranges::all_of(session->form.UserFields, InUse);
}

bool SomethingSelected(const Session *session) { return Selected(session); }
bool ItemSelected(const Session *session) {
    return SomethingSelected(session) && !BarSelected(session);
}
bool NoPictureSelected(const Session *session) {
    return SomethingSelected(session) && !TypeSelected(session, ITEM_PICTURE);
}
bool GroupSelected(const Session *session) { return TypeSelected(session, ITEM_GROUP); }
bool LabelSelected(const Session *session) { return TypeSelected(session, ITEM_LABEL); }
bool LineSelected(const Session *session) { return TypeSelected(session, ITEM_LINE); }

bool TextSelected(const Session *session) {
    return LabelSelected(session) || GroupSelected(session) || FieldSelected(session);
}

bool FieldSelected(const Session *session) {
    const FieldRecord *field = SelectedField(session);
    return field && field->ValueType != TYPE_PICTURE;
}

bool FormulaSelected(const Session *session) {
    const FieldRecord *field = SelectedField(session);
    return field && field->FieldKind == FIELD_CALC;
}

bool BarSelected(const Session *session) { return TypeSelected(session, ITEM_BAR); }

bool SortBarSelected(const Session *session) {
    return BarSelected(session) && IsSortHeader(Selected(session)->SectionIndex);
}

std::span<const SubmenuRow> DesignerSubmenus() { return submenus; }

bool EnableDesignerMenu(const Session *session, HMENU menu) {
    const bool idle = session->designer->PendingCommand == IDLE;
    bool changed = EnableCommands(session, DesignerCommands(), menu, idle);
    for (const SubmenuRow &row : submenus) {
        const UINT state = MenuState(idle && row.enabled(session));
        const auto before = static_cast<UINT>(EnableMenuItem(
            GetSubMenu(menu, row.place), static_cast<UINT>(row.position), MF_BYPOSITION | state));
        changed |= (before & MF_GRAYED) != state;
    }
    CheckMenuItem(menu, COMMAND_GRID, session->designer->SnapToGrid ? MF_CHECKED : MF_UNCHECKED);
    return changed;
}

} // namespace tessarine
