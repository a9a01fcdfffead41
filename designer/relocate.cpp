#include "designer/relocate.h"

#include <algorithm>
#include <cstdlib>

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/place_rect.h"
#include "designer/tracking.h"
#include "designer/undo.h"
#include "designer/view.h"
#include "form/modified.h"
#include "form/sections.h"
#include "frame/fatal_error.h"

namespace tessarine {

namespace {

RECT Moved(const ItemRecord &item, int dx, int dy) {
    RECT place = RectOf(item);
    OffsetRect(&place, dx, dy);
    return place;
}

// The section in which FocusRect lies, the item held in it.
int SectionOfItem(Session *session, int row) {
    const int selected = session->form.SelectedItem;
    session->form.SelectedItem = row; // what is held in its section depends on the selection
    const int section = PlaceRect(session);
    session->form.SelectedItem = selected;
    return section;
}

// The section of the last row that isn't below the group's top edge.
int SectionOfGroup(const Session *session, int group, LONG top) {
    int last = 0;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        if (row == group) continue;
        if (session->form.Items[row].y > top) break;
        last = row;
    }
    return session->form.Items[last].SectionIndex;
}

// A number that comes into a footer starts to sum, and whatever leaves the footers stops.
void SettleSummary(Session *session, const ItemRecord &item, int old_section) {
    if (item.ItemType != ITEM_FIELD) return;
    FieldRecord &field = session->form.Fields[item.FieldIndex];
    const bool number = field.ValueType == TYPE_NUMERIC || field.ValueType == TYPE_DOUBLE;
    if (!IsFooter(item.SectionIndex))
        field.SummaryType = SUMMARY_VALUE;
    else if (!IsFooter(old_section) && number && field.FieldKind != FIELD_SYSTEM)
        field.SummaryType = SUMMARY_TOTAL;
}

bool IsStep(int distance, int pixels_per_inch) {
    const int pixel = pixels_per_inch > 0 ? UNITS_PER_INCH / pixels_per_inch : 0;
    return std::abs(distance) >= std::max(pixel, 1);
}

// Each member is held by its own section, so a group may lose its shape.
void MoveGroup(Session *session, int dx, int dy) {
    MarkGroup(session);
    RelocateItem(session, session->form.SelectedItem, dx, dy);
    for (int row = TakeMarked(session); row != NO_ROW; row = TakeMarked(session))
        RelocateItem(session, row, dx, dy);
    session->form.SelectedItem = GroupRow(session);
    if (session->form.SelectedItem == NO_ROW)
        FatalError(session, "Group Item Missing(MoveItem)", CODE_FORM_CONTRADICTION);
}

void ApplyMove(Session *session, bool group, int dx, int dy) {
    DropUndo(session);
    if (group)
        MoveGroup(session, dx, dy);
    else
        session->form.SelectedItem = RelocateItem(session, session->form.SelectedItem, dx, dy);
    SetModified(session, 1);
}

} // namespace

int RelocateItem(Session *session, int row, int dx, int dy) {
    if (dx == 0 && dy == 0) return row;
    ItemRecord item = session->form.Items[row];
    const int old_section = item.SectionIndex;
    RECT &place = DesignerOf(session).FocusRect;
    place = Moved(item, dx, dy);
    const int section = item.ItemType == ITEM_GROUP ? SectionOfGroup(session, row, place.top)
                                                    : SectionOfItem(session, row);
    if (!FitsRecord(place)) return row;
    SetPlace(&item, place);
    item.SectionIndex = static_cast<int16_t>(section);
    SettleSummary(session, item, old_section);
    return ReplaceRow(session, row, item);
}

void MoveItem(Session *session) {
    const ItemRecord *item = Selected(session);
    if (!item || item->ItemType == ITEM_BAR) return;
    const bool group = item->ItemType == ITEM_GROUP;
    HideFocus(session);
    if (!group) PlaceRect(session);
    const RECT &place = DesignerOf(session).FocusRect;
    const int dx = place.left - item->x;
    const int dy = place.top - item->y;
    if (IsStep(dx, session->drawing.LogPixelsX) || IsStep(dy, session->drawing.LogPixelsY))
        ApplyMove(session, group, dx, dy);
    else
        DesignerOf(session).PaintMode = PAINT_CANVAS;
    EndGesture(session);
    RepaintCanvas(session);
}

void CenterItem(Session *session) {
    const ItemRecord *item = Selected(session);
    if (!item || item->ItemType == ITEM_BAR) return;
    const int row = BarOfSection(session, item->SectionIndex);
    if (row == NO_ROW) return;
    const ItemRecord &bar = session->form.Items[row];
    const int left = bar.x + (bar.width - item->width) / 2;
    const RECT place = Moved(*item, left - item->x, 0);
    HideFocus(session);
    DesignerOf(session).FocusRect = place;
    EnsureVisible(session, place);
    if (session->State != STATE_ENDING) MoveItem(session);
}

} // namespace tessarine
