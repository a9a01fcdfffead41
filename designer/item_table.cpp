#include "designer/item_table.h"

#include <cstring>
#include <limits>

#include "designer/designer_state.h"
#include "frame/memory.h"
#include "frame/owned.h"

namespace tessarine {

namespace {

constexpr int MOST_ROWS = MAX_ITEMS + 1; // one more than in use, for a row that changes its place

void FreeRows(ItemRecord *rows) { OurFree(rows); }
using OwnedRows = Owned<ItemRecord *, FreeRows>;

void MoveRows(Session *session, int from, int to, int count) {
    ItemRecord *items = session->form.Items;
    std::memmove(items + to, items + from, static_cast<size_t>(count) * sizeof *items);
}

int FirstBar(const Session *session) {
    int row = 0;
    while (row < session->form.TotalItems && session->form.Items[row].ItemType != ITEM_BAR) ++row;
    return row;
}

int RowsOfSection(const Session *session, int first) {
    int row = first;
    while (row < session->form.TotalItems &&
           session->form.Items[row].SectionIndex == session->form.Items[first].SectionIndex)
        ++row;
    return row - first;
}

// Row 0 is always a section bar: the rows of the first bar's section go in front of those that
// stand before it.
void PutBarFirst(Session *session) {
    const int first = FirstBar(session);
    if (first == 0 || first == session->form.TotalItems) return;
    const size_t size = static_cast<size_t>(first) * sizeof(ItemRecord);
    const OwnedRows before(static_cast<ItemRecord *>(OurAlloc(size)));
    if (!before) return;
    const int count = RowsOfSection(session, first);
    ItemRecord *items = session->form.Items;
    std::memcpy(before.Get(), items, size);
    MoveRows(session, first, 0, count);
    std::memcpy(items + count, before.Get(), size);
    RenewBars(session, 0);
    if (items[count].ItemType == ITEM_GROUP) items[count].SectionIndex = items[0].SectionIndex;
}

bool StandsBehind(const ItemRecord &item, int section, const RECT &place) {
    if (item.ItemType == ITEM_BAR && item.SectionIndex > section) return true;
    return item.y > place.top || (item.y == place.top && item.x >= place.left);
}

} // namespace

void RenewBars(Session *session, int from) {
    for (int row = from; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (item.ItemType == ITEM_BAR)
            session->form.Sections[item.SectionIndex].BarItem = static_cast<int16_t>(row);
    }
}

bool FitsRecord(int units) {
    return units >= std::numeric_limits<int16_t>::min() &&
           units <= std::numeric_limits<int16_t>::max();
}

bool FitsRecord(const RECT &place) {
    return FitsRecord(place.left) && FitsRecord(place.top) &&
           FitsRecord(place.right - place.left) && FitsRecord(place.bottom - place.top);
}

RECT RectOf(const ItemRecord &item) {
    return {item.x, item.y, item.x + item.width, item.y + item.height};
}

void SetPlace(ItemRecord *item, const RECT &place) {
    item->x = static_cast<int16_t>(place.left);
    item->y = static_cast<int16_t>(place.top);
    item->width = static_cast<int16_t>(place.right - place.left);
    item->height = static_cast<int16_t>(place.bottom - place.top);
}

const ItemRecord *Selected(const Session *session) {
    const FormState &form = session->form;
    const bool one = form.SelectedItem >= 0 && form.SelectedItem < form.TotalItems;
    return one ? &form.Items[form.SelectedItem] : nullptr;
}

ItemRecord *Selected(Session *session) {
    return const_cast<ItemRecord *>(Selected(static_cast<const Session *>(session)));
}

int BarOfSection(const Session *session, int section) {
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (item.ItemType == ITEM_BAR && item.SectionIndex == section) return row;
    }
    return NO_ROW;
}

int InsertionRow(Session *session, int section) {
    int row = BarOfSection(session, section) + 1;
    while (row < session->form.TotalItems &&
           !StandsBehind(session->form.Items[row], section, DesignerOf(session).FocusRect))
        ++row;
    return row;
}

void ShiftItems(Session *session, int row, int count, int operation) {
    const int total = session->form.TotalItems;
    if (row < 0 || count < 0 || row > total) return;
    if (operation == SHIFT_OPEN) {
        if (total + count > MOST_ROWS) return;
        MoveRows(session, row, row + count, total - row);
        session->form.TotalItems += count;
        RenewBars(session, row + count);
    } else {
        if (row + count > total) return;
        MoveRows(session, row + count, row, total - row - count);
        session->form.TotalItems -= count;
        RenewBars(session, row);
        PutBarFirst(session);
    }
}

int ReplaceRow(Session *session, int row, const ItemRecord &item) {
    const ItemRecord moved = item; // the rows move under the caller's
    const int place = InsertionRow(session, moved.SectionIndex);
    const int old = row >= place ? row + 1 : row;
    ShiftItems(session, place, 1, SHIFT_OPEN);
    session->form.Items[place] = moved;
    ShiftItems(session, old, 1, SHIFT_REMOVE);
    return row < place ? place - 1 : place;
}

} // namespace tessarine
