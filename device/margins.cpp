#include "device/margins.h"

#include "device/paper.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr const char *LABEL_WARNING =
    "One or more items extend outside of the label and may be truncated when printed. Any items "
    "that extend outside of the label should be repositioned.";
constexpr const char *MARGIN_WARNING =
    "One or more items extend beyond the margins and may be truncated when printed. Any items that "
    "extend beyond the margins should be repositioned.";

struct Bounds { // form units
    int left;
    int right;
    int bottom;
};

Bounds FormBounds(const Session *session) {
    const ItemRecord &bar = session->form.Items[0];
    if (session->LabelMode) return {bar.x, bar.x + bar.width, bar.y + bar.height};
    return {bar.x, bar.x + FullBarWidth(session) - 1, bar.y + session->form.ReportHeight};
}

bool IsTested(const ItemRecord &item) {
    return item.ItemType != ITEM_BAR && item.ItemType != ITEM_GROUP && item.ItemType != ITEM_LINE;
}

bool Offends(const ItemRecord &item, const Bounds &bounds) {
    return item.x < bounds.left || item.x + item.width > bounds.right ||
           item.y + item.height > bounds.bottom;
}

} // namespace

int ValidateMargins(Session *session, int showMessage) {
    if (session->form.TotalItems < 1) return 0;
    const Bounds bounds = FormBounds(session);
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (!IsTested(item) || !Offends(item, bounds)) continue;
        if (showMessage)
            ShowSessionBox(session, session->LabelMode ? LABEL_WARNING : MARGIN_WARNING, "Warning");
        if (session->view.PaintEnabled) InvalidateRect(session->Window, nullptr, FALSE);
        return row;
    }
    return 0;
}

} // namespace tessarine
