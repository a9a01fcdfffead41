#include "designer/band.h"

#include <algorithm>
#include <climits>

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/handles.h"
#include "designer/item_table.h"
#include "designer/place_rect.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "frame/fatal_error.h"

namespace tessarine {

namespace {

// A record's places have 16 bits, and nothing lies beyond them that a group could touch.
RECT WithinPlaces(RECT band) {
    for (LONG *edge : {&band.left, &band.top, &band.right, &band.bottom})
        *edge = std::clamp<LONG>(*edge, 0, SHRT_MAX);
    return band;
}

int StoreGroup(Session *session, int row, int section) {
    ItemRecord group = session->form.Items[row];
    ShiftItems(session, row, 1, SHIFT_REMOVE);
    SetPlace(&group, DesignerOf(session).FocusRect);
    group.SectionIndex = static_cast<int16_t>(section);
    const int place = InsertionRow(session, section);
    ShiftItems(session, place, 1, SHIFT_OPEN);
    session->form.Items[place] = group;
    return place;
}

} // namespace

void BeginBand(Session *session, int x, int y) {
    const Designer &pressed = DesignerOf(session);
    if (x == pressed.LastClickX && y == pressed.LastClickY) return;
    Deselect(session);
    if (session->State == STATE_ENDING) return;
    Designer &designer = DesignerOf(session);
    designer.FocusRect = {designer.LastClickX, designer.LastClickY, x, y};
    ShowFocus(session);
    designer.PendingCommand = COMMAND_BAND;
    designer.HoverOnly = 0;
    session->form.SelectedItem = NOTHING_SELECTED; // whatever the host did meanwhile
    designer.ActiveHandle = HANDLE_BOTTOM_RIGHT;
}

// The group is chosen anew, and with it nothing of the form has changed.
void EndBand(Session *session) {
    const int row = GroupRow(session);
    if (row == NO_ROW) FatalError(session, "Group Item Missing", CODE_FORM_CONTRADICTION);
    HideFocus(session);
    Designer &designer = DesignerOf(session);
    designer.FocusRect = WithinPlaces(designer.FocusRect);
    const int section = PlaceRect(session);
    FormState &form = session->form;
    form.SelectedItem = StoreGroup(session, row, section);
    const ItemRecord &group = form.Items[form.SelectedItem];
    if (group.width < 1 && group.height < 1) form.SelectedItem = form.Sections[section].BarItem;
    for (int i = 0; i < form.TotalItems; ++i)
        form.Items[i].ItemFlags &= static_cast<uint16_t>(~FLAG_GROUP_TOGGLE);
    EndGesture(session);
    RepaintCanvas(session);
}

} // namespace tessarine
