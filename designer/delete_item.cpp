#include "designer/delete_item.h"

#include <algorithm>

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/section_edit.h"
#include "form/field_table.h"
#include "form/font_table.h"
#include "form/modified.h"

namespace tessarine {

namespace {

bool IsPictureOf(const ItemRecord &item, int picture) {
    return item.ItemType == ITEM_PICTURE && item.FontIndex == picture;
}

// A picture that was given up for want of rows may have left its row to a font.
bool HoldsPicture(const Session *session, int row) {
    return row > 0 && row < MAX_FONTS && session->form.Fonts[row].IsPicture;
}

// By an item of the form, or by a copy that can still be pasted.
bool IsPictureUsed(Session *session, int picture) {
    const Designer &designer = DesignerOf(session);
    const FormState &form = session->form;
    return std::any_of(form.Items, form.Items + form.TotalItems,
                       [=](const ItemRecord &item) { return IsPictureOf(item, picture); }) ||
           std::any_of(designer.ClipItems, designer.ClipItems + designer.ClipCount,
                       [=](const ItemRecord *item) { return item && IsPictureOf(*item, picture); });
}

// What the row held is released behind it, since a host that is told of the change may look.
void DeleteRow(Session *session, int row) {
    const ItemRecord item = session->form.Items[row];
    ShiftItems(session, row, 1, SHIFT_REMOVE);
    if (item.ItemType == ITEM_FIELD) ReleaseField(session, item.FieldIndex);
    if (item.ItemType == ITEM_PICTURE && HoldsPicture(session, item.FontIndex) &&
        !IsPictureUsed(session, item.FontIndex))
        ReleaseFontRow(session, item.FontIndex);
}

void DeleteMembers(Session *session) {
    MarkGroup(session);
    for (int row = TakeMarked(session); row != NO_ROW; row = TakeMarked(session))
        DeleteRow(session, row);
}

} // namespace

void DeleteItem(Session *session) {
    const ItemRecord *item = Selected(session);
    if (!item) return;
    if (item->ItemType == ITEM_BAR) {
        DeleteSection(session, 0);
        return;
    }
    if (item->ItemType == ITEM_GROUP)
        DeleteMembers(session);
    else
        DeleteRow(session, session->form.SelectedItem);
    HideFocus(session);
    session->form.SelectedItem = NOTHING_SELECTED;
    RepaintCanvas(session);
    SetModified(session, 1);
}

} // namespace tessarine
