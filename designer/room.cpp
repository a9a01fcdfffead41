#include "designer/room.h"

#include <algorithm>

#include "designer/arrangement.h"
#include "designer/group.h"
#include "designer/item_table.h"

namespace tessarine {

namespace {

// The band of form that comes or goes: the group's rectangle.
struct Strip {
    RECT place;
    int width;
    int height;
    int bar; // row of the group's section, NO_ROW in a form that has lost it
};

Strip StripOf(const Session *session) {
    const ItemRecord &group = *Selected(session);
    return {RectOf(group), group.width, group.height, BarOfSection(session, group.SectionIndex)};
}

bool IsContent(const ItemRecord &item) {
    return item.ItemType != ITEM_GROUP && item.ItemType != ITEM_BAR;
}

bool Within(int place, LONG least, LONG most) { return place >= least && place <= most; }

bool IsBeside(const ItemRecord &item, const Strip &strip) {
    return IsContent(item) && item.y + item.height >= strip.place.top &&
           item.y <= strip.place.bottom;
}

bool StartsAcross(const ItemRecord &item, const Strip &strip) {
    return IsBeside(item, strip) && Within(item.x, strip.place.left, strip.place.right);
}

bool StartsDown(const ItemRecord &item, const Strip &strip) {
    return IsContent(item) && Within(item.y, strip.place.top, strip.place.bottom);
}

bool IsInTheWay(const Session *session, const Strip &strip,
                bool (*starts)(const ItemRecord &, const Strip &)) {
    const ItemRecord *items = session->form.Items;
    return std::any_of(items, items + session->form.TotalItems,
                       [&](const ItemRecord &item) { return starts(item, strip); });
}

// An item that reaches the section's edge goes further by what is left of the width.
int PushedRight(const ItemRecord &item, const Strip &strip, int edge) {
    const int x = item.x + strip.width;
    const int right = x + item.width;
    return right >= edge ? x + strip.width - (right - edge) : x;
}

// Writes x of every row from the strip on; one that would leave 16 bits stays.
template <typename NewX> void MoveAcross(Session *session, const Strip &strip, NewX new_x) {
    bool moved = false;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        if (!IsBeside(item, strip) || item.x < strip.place.left) continue;
        const int x = new_x(item);
        if (!FitsRecord(x)) continue;
        item.x = static_cast<int16_t>(x);
        moved = true;
    }
    if (moved) EndArrangement(session);
}

// Everything below the strip's top but the row that stays.
bool GoesDown(const Session *session, const Strip &strip, int row, int staying) {
    const ItemRecord &item = session->form.Items[row];
    return row != staying && item.ItemType != ITEM_GROUP && item.y >= strip.place.top;
}

bool FitsDown(const Session *session, const Strip &strip, int distance, int staying) {
    for (int row = 0; row < session->form.TotalItems; ++row)
        if (GoesDown(session, strip, row, staying) &&
            !FitsRecord(session->form.Items[row].y + distance))
            return false;
    return true;
}

bool MoveRowsDown(Session *session, const Strip &strip, int distance, int staying) {
    bool moved = false;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        if (!GoesDown(session, strip, row, staying)) continue;
        item.y = static_cast<int16_t>(item.y + distance);
        moved = true;
    }
    return moved;
}

// A label keeps its size; a report grows with the strip's section. Nothing changes when not
// everything stays in 16 bits.
void MoveDown(Session *session, const Strip &strip, int distance, int staying) {
    const bool grows = !session->LabelMode;
    if (!FitsDown(session, strip, distance, staying)) return;
    if (grows) {
        if (strip.bar == NO_ROW) return;
        ItemRecord &bar = session->form.Items[strip.bar];
        if (!FitsRecord(bar.height + distance)) return;
        bar.height = static_cast<int16_t>(bar.height + distance);
        session->form.ReportHeight += distance;
    }
    if (MoveRowsDown(session, strip, distance, staying) || grows) EndArrangement(session);
}

} // namespace

void ExpandAcross(Session *session) {
    if (!BeginArrangement(session)) return;
    const Strip strip = StripOf(session);
    if (strip.bar == NO_ROW) return;
    const RECT band = RectOf(session->form.Items[strip.bar]);
    MoveAcross(session, strip,
               [&](const ItemRecord &item) { return PushedRight(item, strip, band.right - 1); });
}

void ExpandDown(Session *session) {
    if (!BeginArrangement(session)) return;
    const Strip strip = StripOf(session);
    MoveDown(session, strip, strip.height, NO_ROW);
}

void CompressAcross(Session *session) {
    if (!BeginArrangement(session)) return;
    const Strip strip = StripOf(session);
    if (IsInTheWay(session, strip, StartsAcross))
        MessageBeep(0);
    else
        MoveAcross(session, strip, [&](const ItemRecord &item) { return item.x - strip.width; });
}

void CompressDown(Session *session) {
    if (!BeginArrangement(session)) return;
    const Strip strip = StripOf(session);
    if (IsInTheWay(session, strip, StartsDown))
        MessageBeep(0);
    else
        MoveDown(session, strip, -strip.height, strip.bar);
}

} // namespace tessarine
