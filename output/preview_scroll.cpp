#include "output/preview_scroll.h"

#include <algorithm>
#include <utility>

#include "canvas/scroll_bars.h"
#include "output/page_store.h"
#include "output/preview_paint.h"
#include "output/report_file.h"

namespace tessarine {

namespace {

void GoToPage(Session *session, int page, int originY) {
    TakePage(session, page);
    session->view.OriginY = originY;
    PaintPreview(session);
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
    if (view.OriginY > 0 && !session->preview.FitPage) {
        view.OriginY = std::max(view.OriginY - amount, 0);
        PaintPreview(session);
    } else if (session->pages.ShownPageIndex >= 1) {
        const int overlap = amount - session->device.FontHeight; // a line of text stays in view
        GoToPage(session, session->pages.ShownPageIndex - 1,
                 session->report.PageBottomUnits - overlap);
    }
}

void ScrollDown(Session *session, int amount) {
    ViewState &view = session->view;
    if (FinishedPages(session) < 1) return;
    if (view.OriginY + amount < session->report.PageBottomUnits && !session->preview.FitPage) {
        view.OriginY += amount;
        PaintPreview(session);
    } else if (session->pages.ShownPageIndex + 1 < FinishedPages(session)) {
        GoToPage(session, session->pages.ShownPageIndex + 1, 0);
    }
}

void ScrollLeft(Session *session, int amount) {
    ViewState &view = session->view;
    if (session->preview.FitPage || FinishedPages(session) < 1 || view.OriginX < 1) return;
    view.OriginX = std::max(view.OriginX - amount, 0);
    PaintPreview(session);
}

void ScrollRight(Session *session, int amount) {
    ViewState &view = session->view;
    if (session->preview.FitPage || FinishedPages(session) < 1) return;
    if (view.OriginX >= session->report.PageWidthUnits) return;
    view.OriginX += amount;
    PaintPreview(session);
}

void TrackVertical(Session *session, int position) {
    const int finished = FinishedPages(session);
    if (finished < 1) return;
    const int page = std::clamp(PlaceOfThumb(position, finished), 0, finished - 1);
    if (page != session->pages.ShownPageIndex) GoToPage(session, page, 0);
}

void TrackHorizontal(Session *session, int position) {
    session->view.OriginX = PlaceOfThumb(position, session->report.PageWidthUnits);
    PaintPreview(session);
}

void PlaceScrollBars(Session *session) {
    const ViewState &view = session->view;
    const int64_t hidden = int64_t{session->report.PageWidthUnits} - view.ViewWidth;
    MoveScrollBar(session, SB_HORZ, view.OriginX, hidden);
    MoveScrollBar(session, SB_VERT, 0, 0);
}

void UpdateScrollBars(Session *session) {
    const ViewState &view = session->view;
    const int64_t page_bottom = session->report.PageBottomUnits;
    const int64_t page_width = session->report.PageWidthUnits;
    const int64_t finished = FinishedPages(session);
    if (finished < 1) return;
    if (page_bottom > 0) {
        const int64_t seen = session->pages.ShownPageIndex * page_bottom + view.OriginY;
        MoveScrollBar(session, SB_VERT, seen, finished * page_bottom);
    }
    if (page_width > view.ViewWidth) MoveScrollBar(session, SB_HORZ, view.OriginX, page_width);
}

} // namespace tessarine
