#include "designer/placement.h"

#include <algorithm>

#include "canvas/canvas.h"
#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/dialogs/text_dialogs.h"
#include "designer/focus_rect.h"
#include "designer/item_table.h"
#include "designer/new_items.h"
#include "designer/place_rect.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "designer/undo.h"
#include "designer/view.h"
#include "form/defaults.h"
#include "form/modified.h"
#include "frame/dialogs.h"
#include "frame/message_box.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int AREA_INSET = 2;   // form units, at the left and the top
constexpr int LINE_WIDTH = 300; // of a new line's rectangle, form units
constexpr int LINE_HEIGHT = 50;
constexpr const char *TABLE_FULL = "Item Table Full!";

RECT BelowCaption(const Session *session, const ItemRecord &bar) {
    RECT area = RectOf(bar);
    area.top += session->form.Header.BarHeight;
    return area;
}

RECT Inset(const RECT &area, int height) {
    return {area.left + AREA_INSET, area.top + AREA_INSET, area.right, area.top + height};
}

// What a new item is centred in: the label, the selected section, or else what is on view.
RECT PlacingArea(const Session *session) {
    if (session->LabelMode && session->form.TotalItems > 0)
        return BelowCaption(session, session->form.Items[0]);
    const ItemRecord *bar = Selected(session);
    if (bar && bar->ItemType == ITEM_BAR) return Inset(BelowCaption(session, *bar), bar->height);
    const RECT view = VisibleRectangle(session);
    return Inset(view, view.bottom - view.top);
}

// An area that isn't on view at all leaves the view.
RECT CutToView(const Session *session, const RECT &area) {
    const RECT view = VisibleRectangle(session);
    RECT cut;
    return IntersectRect(&cut, &area, &view) ? cut : view;
}

int AtMost(int size, int room) { return std::max(std::min(size, room), 1); }

} // namespace

int ItemRoomCheck(Session *session) {
    if (session->State == STATE_ENDING || DesignerOf(session).PendingCommand != IDLE) return 0;
    if (session->form.TotalItems >= MAX_ITEMS) {
        ShowSessionBox(session, TABLE_FULL);
        return 1;
    }
    Deselect(session); // a host may hear of it, and close the session
    return session->State == STATE_ENDING ? 0 : ITEM_MAY_BEGIN;
}

void NewItemRect(Session *session, int height, int width, RECT *rectangle, int x, int y,
                 bool free) {
    RECT area = PlacingArea(session);
    if (!free) {
        area = CutToView(session, area);
        if (width >= 0) width = AtMost(width, area.right - area.left);
        height = AtMost(height, area.bottom - area.top);
    }
    rectangle->left = x >= 0 ? x : (area.left + area.right - width) / 2;
    rectangle->right = rectangle->left + width;
    rectangle->top = y >= 0 ? y : (area.top + area.bottom - height) / 2;
    rectangle->bottom = rectangle->top + height;
}

void BeginPlacement(Session *session, int command, int height, int width) {
    NewItemRect(session, height, width, &DesignerOf(session).FocusRect, -1, -1, false);
    ShowPlacement(session, command);
}

void ShowPlacement(Session *session, int command) {
    Designer &designer = DesignerOf(session);
    ShowFocus(session);
    const RECT &place = designer.FocusRect;
    MoveCursorTo(session, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
    designer.PendingCommand = command;
    designer.HoverOnly = 0;
    session->form.SelectedItem = NOTHING_SELECTED;
}

ItemRecord ItemAtFocus(Session *session, int type) {
    ItemRecord item = DefaultItem(session);
    item.ItemType = static_cast<uint16_t>(type);
    HideFocus(session);
    item.SectionIndex = static_cast<int16_t>(PlaceRect(session));
    SetPlace(&item, DesignerOf(session).FocusRect);
    return item;
}

int InsertItem(Session *session, const ItemRecord &item) {
    if (session->form.TotalItems >= MAX_ITEMS) {
        ShowSessionBox(session, TABLE_FULL);
        return NO_ROW;
    }
    DropUndo(session); // which would lose the row again
    const int row = InsertionRow(session, item.SectionIndex);
    ShiftItems(session, row, 1, SHIFT_OPEN);
    session->form.Items[row] = item;
    return row;
}

int SettlePlacement(Session *session, const ItemRecord &item) {
    const int row = InsertItem(session, item);
    EndGesture(session);
    if (row == NO_ROW) return row;
    session->form.SelectedItem = row;
    DesignerOf(session).PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
    SetModified(session, 1);
    return row;
}

void BeginLabel(Session *session) {
    *session->TextBuffer = 0;
    if (RunDialog(session, "NewLabelParam", NewLabelParam, 0) != DIALOG_OK) return;
    if (session->State == STATE_ENDING || ItemRoomCheck(session) != ITEM_MAY_BEGIN) return;
    EndText(session->TextBuffer);
    const SIZE size = LabelSize(session->form.Fonts[0], session->TextBuffer);
    BeginPlacement(session, COMMAND_NEW_LABEL, size.cy, size.cx);
}

void PlaceLabel(Session *session) {
    ItemRecord label = ItemAtFocus(session, ITEM_LABEL);
    CopyText(session->TextBuffer, label.LabelText, sizeof label.LabelText);
    SettlePlacement(session, label);
}

void BeginLine(Session *session) {
    if (ItemRoomCheck(session) != ITEM_MAY_BEGIN) return;
    BeginPlacement(session, COMMAND_NEW_LINE, LINE_HEIGHT, LINE_WIDTH);
}

void PlaceLine(Session *session) { SettlePlacement(session, ItemAtFocus(session, ITEM_LINE)); }

} // namespace tessarine
