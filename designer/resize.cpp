#include "designer/resize.h"

#include <algorithm>
#include <optional>

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/item_table.h"
#include "designer/place_rect.h"
#include "designer/tracking.h"
#include "form/field_sample.h"
#include "form/modified.h"

namespace tessarine {

namespace {

// What a section's new band does to the rows behind its bar.
struct SectionChange {
    int section;
    int top; // of the band, which stays
    int height;
    int caption;
    int edge;   // how far the upper edge was dragged
    int growth; // of the height
};

struct Content {
    int top;
    int bottom;
};

int Finish(Session *session, bool applied) {
    EndGesture(session);
    RepaintCanvas(session);
    if (applied) SetModified(session, 1);
    return applied;
}

int ApplySize(Session *session, int section) {
    const RECT &place = DesignerOf(session).FocusRect;
    ItemRecord item = *Selected(session);
    SetPlace(&item, place);
    item.width = std::max<int16_t>(item.width, 1);
    item.height = std::max<int16_t>(item.height, 1);
    item.KeepSize = 1;
    item.SectionIndex = static_cast<int16_t>(section);
    if (item.ItemType == ITEM_FIELD)
        CreateFieldLabel(session, item.FieldIndex, item.LabelText, item.width, item.FontIndex);
    return ReplaceRow(session, session->form.SelectedItem, item);
}

// What the section holds besides its bar and the group.
std::optional<Content> ContentBehind(const Session *session, int bar) {
    std::optional<Content> content;
    const ItemRecord *items = session->form.Items;
    for (int row = bar + 1; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = items[row];
        if (item.SectionIndex != items[bar].SectionIndex) break;
        if (item.ItemType == ITEM_GROUP) continue;
        const int bottom = item.y + item.height;
        content = content ? Content{std::min<int>(content->top, item.y),
                                    std::max(content->bottom, bottom)}
                          : Content{item.y, bottom};
    }
    return content;
}

// A band can't be drawn smaller than its content.
void ClearContent(const Session *session, const Content &content, RECT *band) {
    const int highest = content.top - session->form.Header.BarHeight;
    if (band->top >= highest) band->top = highest - 1;
    if (band->bottom <= content.bottom) band->bottom = content.bottom + 1;
}

SectionChange ChangeOf(const Session *session, const ItemRecord &bar, const RECT &band) {
    const int caption = session->form.Header.BarHeight;
    const int height = std::max<int>(band.bottom - band.top, caption * 3 / 2);
    return {bar.SectionIndex,   bar.y, height, caption, static_cast<int>(band.top - bar.y),
            height - bar.height};
}

// The rows that go with the section's upper edge: those up to the next section.
int EndOfSection(const Session *session, int bar) {
    const ItemRecord *items = session->form.Items;
    int row = bar + 1;
    while (row < session->form.TotalItems && items[row].SectionIndex <= items[bar].SectionIndex)
        ++row;
    return row;
}

// Below the caption and inside the band, in the distance that it had to the dragged edge.
int FollowingEdge(int y, const SectionChange &change) {
    const int bottom = change.top + change.height;
    y -= change.edge;
    return std::max(y >= bottom ? bottom - 1 : y, change.top + change.caption);
}

int NewY(const ItemRecord &item, bool at_edge, const SectionChange &change) {
    const int y = at_edge ? FollowingEdge(item.y, change) : item.y;
    return item.SectionIndex == change.section ? y : y + change.growth;
}

// Everything stays in 16 bits, or nothing changes.
bool ChangeFits(const Session *session, int bar, const SectionChange &change) {
    bool fits = FitsRecord(change.height) && FitsRecord(change.top + change.height);
    const int end = EndOfSection(session, bar);
    for (int row = bar + 1; row < session->form.TotalItems; ++row)
        fits = fits && FitsRecord(NewY(session->form.Items[row], row < end, change));
    return fits;
}

void ApplyChange(Session *session, int bar, const SectionChange &change) {
    session->form.Items[bar].height = static_cast<int16_t>(change.height);
    session->form.ReportHeight += change.growth;
    const int end = EndOfSection(session, bar);
    for (int row = bar + 1; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        item.y = static_cast<int16_t>(NewY(item, row < end, change));
    }
}

} // namespace

int SizeItem(Session *session) {
    const ItemRecord *item = Selected(session);
    if (!item) return 0;
    if (item->ItemType == ITEM_BAR) return SizeSection(session);
    HideFocus(session);
    const int section = PlaceRect(session);
    const bool fits = FitsRecord(DesignerOf(session).FocusRect);
    if (fits) session->form.SelectedItem = ApplySize(session, section);
    return Finish(session, fits);
}

int SizeSection(Session *session) {
    const ItemRecord *bar = Selected(session);
    if (!bar || bar->ItemType != ITEM_BAR) return 0;
    HideFocus(session);
    const int row = session->form.SelectedItem;
    RECT band = DesignerOf(session).FocusRect;
    if (const auto content = ContentBehind(session, row)) ClearContent(session, *content, &band);
    const SectionChange change = ChangeOf(session, *bar, band);
    const bool fits = ChangeFits(session, row, change);
    if (fits) ApplyChange(session, row, change);
    return Finish(session, fits);
}

} // namespace tessarine
