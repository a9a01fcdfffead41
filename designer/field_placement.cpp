#include "designer/field_placement.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/dialogs/list_dialogs.h"
#include "designer/field_edit.h"
#include "designer/field_records.h"
#include "designer/focus_rect.h"
#include "designer/item_font.h"
#include "designer/item_table.h"
#include "designer/placement.h"
#include "designer/tracking.h"
#include "designer/user_field_commands.h"
#include "form/field_sample.h"
#include "form/field_table.h"
#include "form/host_field.h"
#include "form/sections.h"
#include "frame/dialogs.h"
#include "frame/drop_messages.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int DEFAULT_FONT = 0;
constexpr int ALL_SIDES = SIDE_LEFT | SIDE_RIGHT | SIDE_TOP | SIDE_BOTTOM;
constexpr int BAR_CODE_HEIGHT = -41; // form units, as a font's
constexpr const char *BAR_CODE_FACE = "PostNetTt";
constexpr const char *APPLICATION_TAG = "AppF";

void StandRight(ItemRecord *item) {
    item->ItemFlags &= static_cast<uint16_t>(~(FLAG_LEFT | FLAG_CENTER));
    item->ItemFlags |= FLAG_RIGHT;
}

bool IsNumber(const FieldRecord &field) {
    return field.ValueType == TYPE_NUMERIC || field.ValueType == TYPE_DOUBLE;
}

// Each of the next lets the user choose what becomes of the field's row; false when none did.

bool Pick(Session *session, int row, FieldRecord field) {
    if (!PickHostField(session, session->Window, &field, 0)) return false;
    session->form.Fields[row] = field;
    return true;
}

bool MakeDataField(Session *session, int row) { return Pick(session, row, DefaultField(session)); }

bool MakeBarCode(Session *session, int row) {
    FieldRecord field = DefaultField(session);
    field.FieldFlags |= FIELD_POSTNET;
    return Pick(session, row, field);
}

bool MakeApplicationField(Session *session, int row) {
    FieldRecord field = DefaultField(session);
    CopyText(APPLICATION_TAG, field.PickerTag, sizeof field.PickerTag);
    return Pick(session, row, field);
}

bool MakeCalculation(Session *session, int row) {
    session->form.Fields[row].FieldKind = FIELD_CALC;
    return EditCalculation(session, row);
}

bool MakeSystemField(Session *session, int row) {
    const INT_PTR index = RunDialog(session, "SysParam", SysParam, 0);
    if (index < 0 || index >= static_cast<INT_PTR>(std::size(session->form.SystemFields)))
        return false;
    FieldRecord &field = session->form.Fields[row];
    field = SystemField(session, static_cast<int>(index));
    if (index != SYSTEM_REC_COUNT) return true;
    field.SummaryType = SUMMARY_COUNT;
    field.FieldFlags &= static_cast<uint16_t>(~FIELD_RETAIN);
    return true;
}

bool MakeUserField(Session *session, int row) {
    const int user = ChooseUserField(session);
    if (user < 0) return false;
    session->form.Fields[row] = UserField(session, user);
    return true;
}

struct KindRow {
    int command;
    bool (*make)(Session *session, int row);
};

constexpr KindRow kinds[] = {
    {COMMAND_BARCODE_FIELD, MakeBarCode},    {COMMAND_APPLICATION_FIELD, MakeApplicationField},
    {COMMAND_DATA_FIELD, MakeDataField},     {COMMAND_CALC_FIELD, MakeCalculation},
    {COMMAND_SYSTEM_FIELD, MakeSystemField}, {COMMAND_USER_FIELD, MakeUserField},
};

// The row of a field that the user has chosen, or NO_SLOT.
int MakeField(Session *session, const KindRow &kind) {
    const int row = TakeFieldRow(session);
    if (row == NO_SLOT || kind.make(session, row)) return row;
    FreeFieldSlot(session, row);
    return NO_SLOT;
}

void RepaintBehindDialog(Session *session) {
    DesignerOf(session).PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
}

void GiveBarCodeFont(Session *session) {
    LOGFONTA font{};
    font.lfHeight = BAR_CODE_HEIGHT;
    CopyText(BAR_CODE_FACE, font.lfFaceName, sizeof font.lfFaceName);
    FrFonts(session, &font);
}

} // namespace

void BeginField(Session *session, int command) {
    const auto *const kind = std::ranges::find(kinds, command, &KindRow::command);
    if (kind == std::end(kinds) || ItemRoomCheck(session) != ITEM_MAY_BEGIN) return;
    const int field = MakeField(session, *kind);
    if (session->State == STATE_ENDING) return;
    // A click that closed a dialog must not place anything.
    DropMessages(session->Window, WM_MOUSEFIRST, WM_MOUSELAST);
    if (field == NO_SLOT) return RepaintBehindDialog(session);
    // Under a dialog the host may have begun something of its own.
    if (ItemRoomCheck(session) != ITEM_MAY_BEGIN) return ReleaseField(session, field);
    DesignerOf(session).NewField = field;
    NewFieldRect(session, field, -1, -1, DEFAULT_FONT, false);
    ShowPlacement(session, command);
}

// A host may have released the field while it was being placed.
void PlaceField(Session *session) {
    const int field = DesignerOf(session).NewField;
    if (field >= session->form.FieldCount || !session->form.Fields[field].InUse) {
        HideFocus(session);
        return EndGesture(session);
    }
    const bool bar_code = session->form.Fields[field].FieldFlags & FIELD_POSTNET;
    ItemRecord item = ItemAtFocus(session, ITEM_FIELD);
    GiveField(session, field, &item);
    if (bar_code) StandRight(&item);
    if (SettlePlacement(session, item) == NO_ROW) return ReleaseField(session, field);
    if (bar_code) GiveBarCodeFont(session);
}

void NewFieldRect(Session *session, int field, int x, int y, int font, bool free) {
    int32_t height = 0;
    int32_t width = 0;
    GetFieldSize(session, field, font, &height, &width);
    NewItemRect(session, height, width, &DesignerOf(session).FocusRect, x, y, free);
}

void GiveField(Session *session, int field, ItemRecord *item) {
    FieldRecord *record = &session->form.Fields[field];
    item->FieldIndex = static_cast<int16_t>(field);
    CreateFieldLabel(session, field, item->LabelText, item->width, item->FontIndex);
    if (record->ValueType == TYPE_PICTURE) item->OutlineSides = ALL_SIDES;
    if (!IsNumber(*record)) return;
    StandRight(item);
    if (IsFooter(item->SectionIndex) && record->FieldKind != FIELD_SYSTEM)
        record->SummaryType = SUMMARY_TOTAL;
}

} // namespace tessarine
