#include "designer/section_bars.h"

#include <algorithm>
#include <limits>

#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/paused_painting.h"
#include "designer/relocate.h"
#include "designer/undo.h"
#include "device/paper.h"
#include "form/defaults.h"
#include "form/field_table.h"
#include "form/sections.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

constexpr int BAR_ROOM = 20; // form units beside two lines of the default font
constexpr int MOST_UNITS = std::numeric_limits<int16_t>::max();

int HeightOfNew(const Session *session) {
    return session->form.Header.BarHeight + 2 * session->device.FontHeight + BAR_ROOM;
}

int RowForBar(const Session *session, int section) {
    int row = 0;
    while (row < session->form.TotalItems && session->form.Items[row].SectionIndex <= section)
        ++row;
    return row;
}

// The place at which the section of the row before ends.
int TopOfNew(const Session *session, int row) {
    if (row == 0) return 0;
    const FormState &form = session->form;
    const ItemRecord &bar = form.Items[form.Sections[form.Items[row - 1].SectionIndex].BarItem];
    return bar.y + bar.height;
}

ItemRecord MakeBar(const Session *session, int section, int top) {
    const FormHeader &header = session->form.Header;
    const int left = std::max(InchesToUnits(header.LeftMargin), BAR_LEFT_EDGE);
    ItemRecord bar = DefaultItem(session);
    bar.ItemType = ITEM_BAR;
    bar.SectionIndex = static_cast<int16_t>(section);
    SetPlace(&bar, {left, top, left + FullBarWidth(session), top + HeightOfNew(session)});
    return bar;
}

void SwitchOn(Session *session, int section, int bar) {
    SectionRecord &record = session->form.Sections[section];
    record.InUse = 1;
    record.BarItem = static_cast<int16_t>(bar);
    record.SectionFilter[0] = CELL_END;
    record.SectionFlags = SECTION_COMPRESS_BEFORE | SECTION_COMPRESS_AFTER;
}

int FirstItemOf(const Session *session, int section) {
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (item.SectionIndex == section && item.ItemType != ITEM_BAR &&
            item.ItemType != ITEM_GROUP)
            return row;
    }
    return NO_ROW;
}

// False when the session was closed meanwhile, or an item won't go.
bool DeleteItemsOf(Session *session, int section) {
    for (int row = FirstItemOf(session, section); row != NO_ROW;
         row = FirstItemOf(session, section)) {
        const int total = session->form.TotalItems;
        session->form.SelectedItem = row;
        DeleteItem(session);
        if (session->State == STATE_ENDING || session->form.TotalItems >= total) return false;
    }
    return true;
}

// The section of the first bar behind a bar, or the bar's own.
int SectionBehind(const Session *session, int bar) {
    const ItemRecord *items = session->form.Items;
    for (int row = bar + 1; row < session->form.TotalItems; ++row)
        if (items[row].ItemType == ITEM_BAR) return items[row].SectionIndex;
    return items[bar].SectionIndex;
}

void RemoveBar(Session *session, int section) {
    const int bar = BarOfSection(session, section);
    if (bar == NO_ROW)
        FatalError(session, "Section Not Found!(DeleteSection)", CODE_FORM_CONTRADICTION);
    const int behind = SectionBehind(session, bar);
    const int height = session->form.Items[bar].height;
    HideFocus(session);
    ShiftItems(session, bar, 1, SHIFT_REMOVE);
    const int next = BarOfSection(session, behind);
    for (int row = next == NO_ROW ? bar : next; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        item.y = static_cast<int16_t>(std::max(item.y - height, 0));
    }
    session->form.ReportHeight -= height;
}

bool GroupLiesIn(const Session *session, int section) {
    const int group = GroupRow(session);
    return group != NO_ROW && session->form.Items[group].SectionIndex == section;
}

// Row 0, unless there was no memory to put it there.
const ItemRecord &FirstBar(const Session *session) {
    const FormState &form = session->form;
    return *std::find_if(form.Items, form.Items + form.TotalItems - 1,
                         [](const ItemRecord &item) { return item.ItemType == ITEM_BAR; });
}

// A group that lost its section goes to the first.
void SettleGroup(Session *session, bool homeless) {
    const int group = GroupRow(session);
    if (group == NO_ROW)
        FatalError(session, "Group Item Not Found!(DeleteSection)", CODE_FORM_CONTRADICTION);
    if (!homeless) return;
    const ItemRecord &first = FirstBar(session);
    ItemRecord item = session->form.Items[group];
    const int dx = first.x - item.x;
    const int dy = first.y + session->form.Header.BarHeight - item.y;
    if (dx != 0 || dy != 0) {
        RelocateItem(session, group, dx, dy);
        return;
    }
    item.SectionIndex = first.SectionIndex; // which no distance wouldn't change
    DesignerOf(session).FocusRect = RectOf(item);
    ReplaceRow(session, group, item);
}

void DropLastBreak(Session *session) {
    if (session->form.BreakCount == 0) return;
    const BreakFieldRecord row = session->form.Breaks[--session->form.BreakCount];
    ReleaseField(session, row.SortField);
    ReleaseField(session, row.BreakField);
}

} // namespace

bool HasRoomForSection(const Session *session) {
    const FormState &form = session->form;
    const int height = HeightOfNew(session);
    if (form.TotalItems >= MAX_ITEMS || form.ReportHeight + height > MOST_UNITS) return false;
    return std::none_of(form.Items, form.Items + form.TotalItems, [height](const ItemRecord &item) {
        return item.y + item.height + height > MOST_UNITS;
    });
}

int InsertSection(Session *session, int section) {
    FormState &form = session->form;
    DropUndo(session); // of a table with other sections
    const int row = RowForBar(session, section);
    const ItemRecord bar = MakeBar(session, section, TopOfNew(session, row));
    DropUndo(session); // which would lose the row again
    ShiftItems(session, row, 1, SHIFT_OPEN);
    form.Items[row] = bar;
    SwitchOn(session, section, row);
    for (int behind = row + 1; behind < form.TotalItems; ++behind)
        form.Items[behind].y = static_cast<int16_t>(form.Items[behind].y + bar.height);
    form.ReportHeight += bar.height;
    return row;
}

bool RemoveSection(Session *session, int section) {
    const PausedPainting paused(session);
    if (!DeleteItemsOf(session, section)) return false;
    DropUndo(session);
    const bool homeless = GroupLiesIn(session, section);
    RemoveBar(session, section);
    SettleGroup(session, homeless);
    if (IsSortHeader(section)) DropLastBreak(session);
    SectionRecord &record = session->form.Sections[section];
    ReleaseSymbols(session, record.SectionFilter);
    record.SectionFilter[0] = CELL_END;
    record.InUse = 0;
    return true;
}

} // namespace tessarine
