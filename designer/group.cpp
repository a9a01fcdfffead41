#include "designer/group.h"

#include "designer/designer_state.h"
#include "designer/item_table.h"

namespace tessarine {

namespace {

bool Touches(const RECT &a, const RECT &b) {
    return a.left <= b.right && a.right >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

int LeastMarked(const Session *session, int (*place)(const ItemRecord &)) {
    int least = NO_ROW;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (!item.GroupMark) continue;
        if (least == NO_ROW || place(item) < place(session->form.Items[least])) least = row;
    }
    return least;
}

} // namespace

int GroupRow(const Session *session) {
    for (int row = 0; row < session->form.TotalItems; ++row)
        if (session->form.Items[row].ItemType == ITEM_GROUP) return row;
    return NO_ROW;
}

bool IsGroupSelected(const Session *session) {
    const ItemRecord *item = Selected(session);
    return item && item->ItemType == ITEM_GROUP;
}

bool IsGroupMember(const Session *session, int row) {
    if (!IsGroupSelected(session)) return false;
    const ItemRecord &item = session->form.Items[row];
    if (item.ItemType == ITEM_GROUP || item.ItemType == ITEM_BAR) return false;
    const bool touches = Touches(RectOf(item), RectOf(*Selected(session)));
    const bool toggled = item.ItemFlags & FLAG_GROUP_TOGGLE;
    return touches != toggled;
}

void MarkGroup(Session *session) {
    for (int row = 0; row < session->form.TotalItems; ++row)
        session->form.Items[row].GroupMark = IsGroupMember(session, row);
}

int TakeMarked(Session *session) {
    for (int row = 0; row < session->form.TotalItems; ++row) {
        if (!session->form.Items[row].GroupMark) continue;
        session->form.Items[row].GroupMark = 0;
        return row;
    }
    return NO_ROW;
}

int LeftmostMarked(const Session *session) {
    return LeastMarked(session, [](const ItemRecord &item) { return int{item.x}; });
}

int TopmostMarked(const Session *session) {
    return LeastMarked(session, [](const ItemRecord &item) { return int{item.y}; });
}

} // namespace tessarine
