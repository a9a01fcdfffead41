#include "designer/item_table.h"

#include <cstring>

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

void RenewBars(Session *session, int from) {
    for (int row = from; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (item.ItemType == ITEM_BAR)
            session->form.Sections[item.SectionIndex].BarItem = static_cast<int16_t>(row);
    }
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

int InsertionRow(Session *session, int section) {
    int row = 0;
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

} // namespace tessarine
