#include <algorithm>
#include <utility>

#include "output/page_store.h"
#include "output/preview.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

constexpr int SCROLL_RANGE = 100;

void GoToPage(Session *session, int page, int originY) {
    TakePage(session, page);
    session->view.OriginY = originY;
    PaintPreview(session);
}

void MoveBar(Session *session, int bar, int32_t *position, int64_t value) {
    const int wanted = static_cast<int>(std::clamp<int64_t>(value, 0, SCROLL_RANGE));
    if (*position == wanted) return;
    *position = wanted;
    SetScrollPos(session->device.Window, bar, wanted, TRUE);
}

} // namespace

// The old page is given up before the new one is read, so that a failure leaves no page that was
// deleted on view.
void TakePage(Session *session, int page) {
    PageStoreState &pages = session->pages;
    const HMETAFILE old_page = std::exchange(pages.ShownPage, nullptr);
    pages.ShownPage = ReadMetaFilePage(session, page, pages.ScreenPagePath, old_page);
    pages.ShownPageIndex = page;
}

void ScrollUp(Session *session, int amount) {
    ViewState &view = session->view;
    if (FinishedPages(session) < 1) return;
    if (view.OriginY > 0 && !view.FitPage) {
        view.OriginY = std::max(view.OriginY - amount, 0);
        PaintPreview(session);
    } else if (session->pages.ShownPageIndex >= 1) {
        const int overlap = amount - session->device.FontHeight; // a line of text stays in view
        GoToPage(session, session->pages.ShownPageIndex - 1,
                 session->run.PageBottomUnits - overlap);
    }
}

void ScrollDown(Session *session, int amount) {
    ViewState &view = session->view;
    if (FinishedPages(session) < 1) return;
    if (view.OriginY + amount < session->run.PageBottomUnits && !view.FitPage) {
        view.OriginY += amount;
        PaintPreview(session);
    } else if (session->pages.ShownPageIndex + 1 < FinishedPages(session)) {
        GoToPage(session, session->pages.ShownPageIndex + 1, 0);
    }
}

void ScrollLeft(Session *session, int amount) {
    ViewState &view = session->view;
    if (view.FitPage || FinishedPages(session) < 1 || view.OriginX < 1) return;
    view.OriginX = std::max(view.OriginX - amount, 0);
    PaintPreview(session);
}

void ScrollRight(Session *session, int amount) {
    ViewState &view = session->view;
    if (view.FitPage || FinishedPages(session) < 1) return;
    if (view.OriginX >= session->run.PageWidthUnits) return;
    view.OriginX += amount;
    PaintPreview(session);
}

void TrackVertical(Session *session, int position) {
    const int finished = FinishedPages(session);
    if (finished < 1) return;
    const int page = std::clamp(position * finished / SCROLL_RANGE, 0, finished - 1);
    if (page != session->pages.ShownPageIndex) GoToPage(session, page, 0);
}

void TrackHorizontal(Session *session, int position) {
    session->view.OriginX = position * session->run.PageWidthUnits / SCROLL_RANGE;
    PaintPreview(session);
}

void PlaceScrollBars(Session *session) {
    ViewState &view = session->view;
    const int64_t hidden = int64_t{session->run.PageWidthUnits} - view.ViewWidth;
    const int64_t place = hidden > 0 ? int64_t{view.OriginX} * SCROLL_RANGE / hidden : 0;
    view.ScrollPosX = static_cast<int32_t>(std::min<int64_t>(place, SCROLL_RANGE));
    view.ScrollPosY = 0;
    SetScrollPos(session->device.Window, SB_HORZ, view.ScrollPosX, TRUE);
    SetScrollPos(session->device.Window, SB_VERT, view.ScrollPosY, TRUE);
}

void UpdateScrollBars(Session *session) {
    ViewState &view = session->view;
    const int64_t page_bottom = session->run.PageBottomUnits;
    const int64_t page_width = session->run.PageWidthUnits;
    const int64_t finished = FinishedPages(session);
    if (finished < 1) return;
    if (page_bottom > 0) {
        const int64_t seen = session->pages.ShownPageIndex * page_bottom + view.OriginY;
        MoveBar(session, SB_VERT, &view.ScrollPosY, seen * SCROLL_RANGE / (finished * page_bottom));
    }
    if (page_width > view.ViewWidth)
        MoveBar(session, SB_HORZ, &view.ScrollPosX, view.OriginX * SCROLL_RANGE / page_width);
}

} // namespace tessarine
