#include "designer/host_items.h"

#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "designer/placement.h"
#include "form/defaults.h"
#include "form/modified.h"

namespace tessarine {

namespace {

bool IsInForm(const Session *session, int section) {
    return section >= 0 && section < MAX_SECTIONS && session->form.Sections[section].InUse;
}

bool MovesDown(const ItemRecord &item, int y) { return item.ItemType != ITEM_GROUP && item.y >= y; }

bool GrowthFits(const Session *session, const ItemRecord &bar, int y, int growth) {
    bool fits = FitsRecord(session->form.ReportHeight + growth) && FitsRecord(bar.height + growth);
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        fits = fits && (!MovesDown(item, y) || FitsRecord(item.y + growth));
    }
    return fits;
}

} // namespace

bool MayAddTo(Session *session, int section) {
    return IsInForm(session, section) && ItemRoomCheck(session) == ITEM_MAY_BEGIN;
}

ItemRecord *BarOf(Session *session, int section) {
    return &session->form.Items[session->form.Sections[section].BarItem];
}

void SelectBar(Session *session, int section) {
    session->form.SelectedItem = session->form.Sections[section].BarItem;
}

ItemRecord ItemInSection(Session *session, int type, int section) {
    ItemRecord item = DefaultItem(session);
    item.ItemType = static_cast<uint16_t>(type);
    item.SectionIndex = static_cast<int16_t>(section);
    SetPlace(&item, DesignerOf(session).FocusRect);
    return item;
}

int AddItem(Session *session, const ItemRecord &item) {
    const int row = InsertItem(session, item);
    SetModified(session, 1);
    return row;
}

bool GrowSection(Session *session, int section, int y, int growth) {
    ItemRecord *bar = BarOf(session, section);
    if (!GrowthFits(session, *bar, y, growth)) return false;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        if (MovesDown(item, y)) item.y = static_cast<int16_t>(item.y + growth);
    }
    bar->height = static_cast<int16_t>(bar->height + growth);
    session->form.ReportHeight += growth;
    return true;
}

} // namespace tessarine
