#include "designer/selection.h"

#include <cstdlib>

#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/handles.h"
#include "designer/item_table.h"
#include "frame/fatal_error.h"
#include "frame/host_data.h"

namespace tessarine {

namespace {

bool IsEmptyGroup(const ItemRecord &item) {
    return item.ItemType == ITEM_GROUP && item.width < 1 && item.height < 1;
}

// All four edges belong to the item.
bool Holds(const ItemRecord &item, int x, int y) {
    const RECT place = RectOf(item);
    return x >= place.left && x <= place.right && y >= place.top && y <= place.bottom;
}

int AreaOf(const ItemRecord &item) { return std::abs(item.width * item.height); }

void FillHandles(Session *session, HBRUSH brush) {
    for (const RECT &handle : DesignerOf(session).HandleRects)
        if (HandleShown(handle)) FillRect(session->drawing.ScreenDC, &handle, brush);
}

// What the host is told of a selected item. A message of 0 isn't sent.
struct NoticeRow {
    bool editable;
    UINT text;      // with the text
    UINT others[2]; // with nothing
};
constexpr NoticeRow editable_text = {true, MESSAGE_EDITABLE_TEXT, {MESSAGE_NO_FIXED_TEXT, 0}};
constexpr NoticeRow fixed_text = {false, MESSAGE_FIXED_TEXT, {MESSAGE_NO_EDITABLE_TEXT, 0}};
constexpr NoticeRow no_text = {false, 0, {MESSAGE_NO_FIXED_TEXT, MESSAGE_NO_EDITABLE_TEXT}};

struct Notice {
    const NoticeRow *row;
    FieldRecord *field;
    char *label;

    const char *Text() const { return field ? field->FieldName : label; }
};

Notice NoticeOf(const Session *session, ItemRecord *item) {
    if (item->ItemType == ITEM_LABEL) return {&editable_text, nullptr, item->LabelText};
    const bool named = item->FieldIndex >= 0 && item->FieldIndex < session->form.FieldCount;
    if (item->ItemType != ITEM_FIELD || !named) return {&no_text, nullptr, nullptr};
    FieldRecord *field = &session->form.Fields[item->FieldIndex];
    return {field->FieldKind == FIELD_CALC ? &editable_text : &fixed_text, field, nullptr};
}

// Whether the session still stands open behind it.
bool Tell(Session *session, UINT message, LPARAM lParam) {
    if (!message) return true;
    SendMessageA(session->ParentWindow, message, 0, lParam);
    RaisePending(session);
    return session->State != STATE_ENDING;
}

bool SendNotice(Session *session, const Notice &notice) {
    const bool may_edit = host_data.EditAllowed && *host_data.EditAllowed == 1;
    return Tell(session, MESSAGE_MAY_EDIT, notice.row->editable && may_edit) &&
           Tell(session, notice.row->text, reinterpret_cast<LPARAM>(notice.Text())) &&
           Tell(session, notice.row->others[0], 0) && Tell(session, notice.row->others[1], 0);
}

void CallHost(Session *session, const Notice &notice) {
    const OwnFloatState own; // the routines may leave the floating point units as they like
    if (host_data.FieldSelectedCallback)
        host_data.FieldSelectedCallback(notice.field, host_data.HostContext);
    RaisePending(session);
    if (session->State == STATE_ENDING || !host_data.LabelSelectedCallback) return;
    host_data.LabelSelectedCallback(
        static_cast<uint32_t>(reinterpret_cast<uintptr_t>(notice.label)), host_data.HostContext);
    RaisePending(session);
}

} // namespace

int HitTest(Session *session, int x, int y) {
    DesignerOf(session).LastClickX = x;
    DesignerOf(session).LastClickY = y;
    const ItemRecord *items = session->form.Items;
    int best = NO_ROW;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        if (IsEmptyGroup(items[row]) || !Holds(items[row], x, y)) continue;
        if (best == NO_ROW || AreaOf(items[row]) <= AreaOf(items[best])) best = row;
    }
    return best == NO_ROW ? 0 : best;
}

int SelectItem(Session *session, int row) {
    if (row < 0 || row >= session->form.TotalItems) return 0;
    HideFocus(session);
    session->form.SelectedItem = row;
    ItemRecord *item = Selected(session);
    Designer &designer = DesignerOf(session);
    designer.HandleCount = HANDLES;
    PlaceHandles(*item, session->form.Header.BarHeight, session->LabelMode, designer.HandleRects);
    FillHandles(session, session->device.ForeBrush);
    designer.FocusRect = RectOf(*item);
    const Notice notice = NoticeOf(session, item);
    if (SendNotice(session, notice)) CallHost(session, notice);
    return 1;
}

void Deselect(Session *session) {
    if (session->form.SelectedItem == NOTHING_SELECTED) return;
    HideFocus(session);
    FillHandles(session, session->device.BackBrush);
    ItemRecord *item = Selected(session);
    if (item && item->ItemType == ITEM_GROUP) item->width = item->height = 0;
    session->form.SelectedItem = NOTHING_SELECTED;
    DesignerOf(session).HandleCount = 0;
    if (!session->Desk.EditWindow) return;
    SetWindowTextA(session->Desk.EditWindow, "");
    RaisePending(session);
}

} // namespace tessarine
