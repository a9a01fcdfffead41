#include "designer/tracking.h"

#include <algorithm>
#include <iterator>

#include "commands.h"
#include "designer/band.h"
#include "designer/canvas_paint.h"
#include "designer/clipboard.h"
#include "designer/designer_state.h"
#include "designer/drag_rect.h"
#include "designer/field_placement.h"
#include "designer/focus_rect.h"
#include "designer/handles.h"
#include "designer/host_words.h"
#include "designer/item_table.h"
#include "designer/limits.h"
#include "designer/picture_items.h"
#include "designer/place_rect.h"
#include "designer/placement.h"
#include "designer/relocate.h"
#include "designer/resize.h"
#include "designer/selection.h"
#include "designer/undo.h"
#include "designer/view.h"
#include "frame/drop_messages.h"

namespace tessarine {

namespace {

struct PlacementRow {
    int command;
    void (*place)(Session *session);
};
constexpr PlacementRow placement_rows[] = {{COMMAND_NEW_LABEL, PlaceLabel},
                                           {COMMAND_PICTURE_PASTED, PlacePicture},
                                           {COMMAND_PICTURE_FILE, PlacePicture},
                                           {COMMAND_BARCODE_FIELD, PlaceField},
                                           {COMMAND_APPLICATION_FIELD, PlaceField},
                                           {COMMAND_DATA_FIELD, PlaceField},
                                           {COMMAND_CALC_FIELD, PlaceField},
                                           {COMMAND_SYSTEM_FIELD, PlaceField},
                                           {COMMAND_USER_FIELD, PlaceField},
                                           {COMMAND_NEW_LINE, PlaceLine},
                                           {COMMAND_PASTE, PlacePaste}};

const PlacementRow *PlacementOf(int command) {
    const auto row = std::ranges::find(placement_rows, command, &PlacementRow::command);
    return row == std::end(placement_rows) ? nullptr : row;
}

constexpr WPARAM ANY_BUTTON = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;

struct Pointer {
    Pointer(const Session *session, WPARAM keys_down, LPARAM lParam)
        : keys(keys_down), pixel(PixelOfMessage(lParam)), place(DeviceToForm(session, pixel)) {}

    bool Held() const { return keys & ANY_BUTTON; }

    WPARAM keys;
    POINT pixel;
    POINT place; // of the form
};

// ---- a press ----------------------------------------------------------------------------------

void Arm(Session *session) {
    DesignerOf(session).PendingCommand = IDLE;
    DesignerOf(session).HoverOnly = !MayEdit();
}

void RepaintSelection(Session *session) {
    DesignerOf(session).PaintMode = PAINT_CANVAS;
    RepaintCanvas(session);
}

// The host hears of each selection and may act on it, so the item is looked up anew.
void ShowSelected(Session *session) {
    const ItemRecord *item = session->State == STATE_ENDING ? nullptr : Selected(session);
    if (!item || item->ItemType == ITEM_BAR || item->ItemType == ITEM_GROUP) return;
    SelectItem(session, session->form.SelectedItem);
    if (session->State == STATE_ENDING) return;
    Designer &designer = DesignerOf(session);
    designer.OutOfBounds = LiesOutside(session, designer.FocusRect);
    ShowFocus(session);
}

void SelectAt(Session *session, const Pointer &pointer) {
    const int row = HitTest(session, pointer.place.x, pointer.place.y);
    if (row != session->form.SelectedItem) {
        Deselect(session);
        session->form.SelectedItem = row;
        RepaintSelection(session);
        if (session->State == STATE_ENDING) return;
    }
    Arm(session);
    ShowSelected(session);
}

// Takes an item out of the group, or in.
void ToggleAt(Session *session, const Pointer &pointer) {
    ItemRecord &item = session->form.Items[HitTest(session, pointer.place.x, pointer.place.y)];
    DesignerOf(session).PendingCommand = IDLE;
    if (item.ItemType == ITEM_BAR) return;
    item.ItemFlags ^= FLAG_GROUP_TOGGLE;
    RepaintSelection(session);
}

void HoldHandle(Session *session, int handle) {
    if (!MayEdit()) return;
    Designer &designer = DesignerOf(session);
    designer.ActiveHandle = handle;
    designer.PendingCommand = COMMAND_SIZE;
    designer.HoverOnly = 0;
    SetCursor(HandleCursor(session, handle));
}

void PressSelection(Session *session, const Pointer &pointer) {
    const ItemRecord *item = Selected(session);
    if (!item) return SelectAt(session, pointer);
    if (item->ItemType == ITEM_GROUP && GetKeyState(VK_SHIFT) < 0)
        return ToggleAt(session, pointer);
    const int handle = HandleAt(DesignerOf(session).HandleRects, pointer.place.x, pointer.place.y);
    if (handle != NO_HANDLE) return HoldHandle(session, handle);
    SelectAt(session, pointer);
}

void PressPlacement(Session *session, const Pointer &) {
    PlacementOf(DesignerOf(session).PendingCommand)->place(session);
}

// ---- what follows the pointer -----------------------------------------------------------------

RECT Moving(Session *session, POINT place) {
    const Designer &designer = DesignerOf(session);
    RECT next = MovedTo(designer.FocusRect, place.x, place.y);
    if (designer.SnapToGrid) SnapRect(session, &next, NO_ROW);
    return HeldMoving(next, FormLimits(session), designer.OutOfBounds);
}

RECT Sizing(Session *session, POINT place) {
    Designer &designer = DesignerOf(session);
    const ItemRecord *item = Selected(session);
    if (item && item->ItemType == ITEM_BAR)
        return SizedBar(designer.FocusRect, designer.ActiveHandle, place.x, place.y,
                        MostBarHeight(session, item->SectionIndex));
    const RECT next = SizedBy(designer.FocusRect, &designer.ActiveHandle, place.x, place.y);
    return HeldSizing(next, FormLimits(session), designer.OutOfBounds);
}

HCURSOR Arrow(Session *session) { return session->device.ArrowCursor; }
HCURSOR Cross(Session *session) { return session->device.CrossCursor; }
HCURSOR OfHandle(Session *session) {
    return HandleCursor(session, DesignerOf(session).ActiveHandle);
}

// ---- the end of a drag ------------------------------------------------------------------------

void ReleaseMove(Session *session) {
    if (MayEdit()) MoveItem(session);
}

void ReleaseSize(Session *session) {
    if (!MayEdit()) return;
    SizeItem(session);
    if (session->State != STATE_ENDING) DropUndo(session);
}

// ---- the states -------------------------------------------------------------------------------

struct StateRow {
    int command; // PendingCommand
    void (*press)(Session *session, const Pointer &pointer);
    RECT (*follow)(Session *session, POINT place); // FocusRect under the pointer
    HCURSOR (*cursor)(Session *session);
    void (*release)(Session *session);
    bool held; // it takes a button, and is given up at the first move without one
};
constexpr StateRow idle = {IDLE, PressSelection, nullptr, nullptr, nullptr, false};
constexpr StateRow drags[] = {{COMMAND_MOVE, PressSelection, Moving, Cross, ReleaseMove, true},
                              {COMMAND_SIZE, PressSelection, Sizing, OfHandle, ReleaseSize, true},
                              {COMMAND_BAND, PressSelection, Sizing, Arrow, EndBand, true}};
constexpr StateRow placing = {IDLE, PressPlacement, Moving, Cross, nullptr, false};

const StateRow &StateOf(Session *session) {
    const int command = DesignerOf(session).PendingCommand;
    if (IsPlacement(command)) return placing;
    const auto drag = std::ranges::find(drags, command, &StateRow::command);
    return drag == std::end(drags) ? idle : *drag;
}

// ---- a move -----------------------------------------------------------------------------------

// The rectangle's middle goes with the pointer, so the pointer goes there first.
void BeginMove(Session *session, const ItemRecord &item) {
    DesignerOf(session).PendingCommand = COMMAND_MOVE;
    MoveCursorTo(session, item.x + item.width / 2, item.y + item.height / 2);
    DropMessages(session->Window, WM_MOUSEMOVE, WM_MOUSEMOVE);
}

void BeginBandWithin(Session *session, POINT place) {
    const RECT limits = FormLimits(session);
    if (place.x < limits.left || place.y < limits.top) return;
    const bool beyond = place.x > limits.right || place.y > limits.bottom;
    if (beyond && !DesignerOf(session).OutOfBounds) return;
    BeginBand(session, place.x, place.y);
}

void BeginDrag(Session *session, const ItemRecord &item, POINT place) {
    if (item.ItemType == ITEM_BAR)
        BeginBandWithin(session, place);
    else
        BeginMove(session, item);
}

void ShowFocusAt(Session *session, const RECT &place) {
    HideFocus(session);
    DesignerOf(session).FocusRect = place;
    ShowFocus(session);
}

void Drag(Session *session, const StateRow &state, const Pointer &pointer) {
    if (pointer.pixel.y < CanvasTop(session)) {
        SetCursor(Arrow(session));
        return;
    }
    if (state.held && !pointer.Held()) return EndGesture(session);
    SetCursor(state.cursor(session));
    const RECT next = state.follow(session, pointer.place);
    if (EnsureVisible(session, next)) MoveCursorTo(session, pointer.place.x, pointer.place.y);
    if (session->State != STATE_ENDING) ShowFocusAt(session, next);
}

} // namespace

bool IsPlacement(int command) { return PlacementOf(command); }

void MouseDown(Session *session, WPARAM wParam, LPARAM lParam) {
    StateOf(session).press(session, Pointer(session, wParam, lParam));
}

void MouseMove(Session *session, WPARAM wParam, LPARAM lParam) {
    const Pointer pointer(session, wParam, lParam);
    const StateRow &state = StateOf(session);
    const ItemRecord *item = Selected(session);
    if (state.follow)
        Drag(session, state, pointer);
    else if (pointer.Held() && item)
        BeginDrag(session, *item, pointer.place);
    else
        HoverCursor(session, lParam);
}

void MouseUp(Session *session, WPARAM, LPARAM) {
    const StateRow &state = StateOf(session);
    if (state.release) state.release(session);
}

void HoverCursor(Session *session, LPARAM lParam) {
    const POINT place = PlaceOfMessage(session, lParam);
    const int handle =
        Selected(session) ? HandleAt(DesignerOf(session).HandleRects, place.x, place.y) : NO_HANDLE;
    SetCursor(handle == NO_HANDLE ? Arrow(session) : HandleCursor(session, handle));
}

void EndGesture(Session *session) {
    DesignerOf(session).PendingCommand = IDLE;
    DesignerOf(session).HoverOnly = 1;
    SetCursor(Arrow(session));
}

} // namespace tessarine
