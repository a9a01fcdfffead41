#include "designer/nudge.h"

#include <algorithm>
#include <climits>
#include <iterator>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/item_table.h"
#include "designer/relocate.h"
#include "designer/view.h"
#include "frame/drop_messages.h"
#include "frame/fatal_error.h"

namespace tessarine {

namespace {

struct DirectionRow {
    int command;
    int across;
    int down;
};
constexpr DirectionRow direction_rows[] = {{COMMAND_LINE_UP, 0, -1},
                                           {COMMAND_LINE_DOWN, 0, 1},
                                           {COMMAND_LEFT, -1, 0},
                                           {COMMAND_RIGHT, 1, 0}};

const ItemRecord *NudgedItem(const Session *session) {
    const ItemRecord *item = session->State == STATE_ENDING ? nullptr : Selected(session);
    return item && item->ItemType != ITEM_BAR ? item : nullptr;
}

constexpr int STEPS_OF_A_LINE = 16; // without the grid

int StepOf(Session *session) {
    const Designer &designer = DesignerOf(session);
    return designer.SnapToGrid ? designer.GridSize : session->device.FontHeight / STEPS_OF_A_LINE;
}

struct Corner { // wider than any step and place
    int64_t x;
    int64_t y;
};

bool FitsPlaces(const ItemRecord &item, const Corner &corner) {
    return corner.x >= SHRT_MIN && corner.x + item.width <= SHRT_MAX && corner.y >= SHRT_MIN &&
           corner.y + item.height <= SHRT_MAX;
}

// Below the caption of the item's section; false when it would pass the section's end.
bool HoldInSection(const Session *session, const ItemRecord &item, Corner *corner) {
    const int row = BarOfSection(session, item.SectionIndex);
    if (row == NO_ROW) return false;
    const ItemRecord &bar = session->form.Items[row];
    const int64_t least = bar.y + session->form.Header.BarHeight + 1;
    corner->y = std::max(corner->y, least);
    return corner->y + item.height < bar.y + bar.height;
}

} // namespace

void NudgeItem(Session *session, int command) {
    const auto direction = std::ranges::find(direction_rows, command, &DirectionRow::command);
    if (direction == std::end(direction_rows) || !NudgedItem(session)) return;
    DropMessages(session->Window, WM_KEYDOWN, WM_KEYLAST); // so that a held key doesn't pile up
    RaisePending(session);
    const ItemRecord *item = NudgedItem(session);
    if (!item) return;
    const int64_t step = StepOf(session);
    Corner corner{item->x + direction->across * step, item->y + direction->down * step};
    if (item->ItemType != ITEM_GROUP && !HoldInSection(session, *item, &corner)) return;
    if (!FitsPlaces(*item, corner)) return;
    const int x = static_cast<int>(corner.x);
    const int y = static_cast<int>(corner.y);
    HideFocus(session);
    DesignerOf(session).FocusRect = {x, y, x + item->width, y + item->height};
    EnsureVisible(session, DesignerOf(session).FocusRect);
    if (session->State != STATE_ENDING) MoveItem(session);
}

} // namespace tessarine
