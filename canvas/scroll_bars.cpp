#include "canvas/scroll_bars.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr int SCROLL_RANGE = 100;

void ShowBar(HWND window, int bar) {
    ShowScrollBar(window, bar, TRUE);
    SetScrollRange(window, bar, 0, SCROLL_RANGE, FALSE);
    SetScrollPos(window, bar, 0, TRUE);
}

} // namespace

void ShowScrollBars(Session *session) {
    if (session->view.HorzScroll) ShowBar(session->Window, SB_HORZ);
    if (session->view.VertScroll) ShowBar(session->Window, SB_VERT);
}

// Setting a bar draws it, so it is set only when it moves.
void MoveScrollBar(Session *session, int bar, int64_t place, int64_t extent) {
    const int64_t share = extent > 0 ? place * SCROLL_RANGE / extent : 0;
    const int wanted = static_cast<int>(std::clamp<int64_t>(share, 0, SCROLL_RANGE));
    int32_t &position = bar == SB_HORZ ? session->view.ScrollPosX : session->view.ScrollPosY;
    if (position == wanted) return;
    position = wanted;
    SetScrollPos(session->Window, bar, wanted, TRUE);
}

int PlaceOfThumb(int position, int extent) { return position * extent / SCROLL_RANGE; }

} // namespace tessarine
