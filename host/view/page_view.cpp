#include "host/view/page_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int MARGIN = 12;  // pixels round the sheet
constexpr int OVERLAP = 40; // pixels that stay in view when a page is turned by parts
constexpr double ZOOMS[] = {0.10, 0.25, 0.33, 0.50, 0.67, 0.75, 1.00,
                            1.25, 1.50, 2.00, 3.00, 4.00, 6.00, 8.00};
constexpr double SAME = 1e-6; // zooms nearer than this are one

int Pixels(double inches, double pixels_per_inch) {
    return std::max(1, static_cast<int>(std::lround(inches * pixels_per_inch)));
}

LONG Beyond(LONG extent, LONG client) { return std::max<LONG>(0, extent - client); }

LONG Start(LONG extent, LONG client, LONG scroll) {
    return extent < client ? (client - extent) / 2 : -scroll;
}

SCROLLINFO Bar(int extent, int client, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = extent - 1;
    info.nPage = static_cast<UINT>(client);
    info.nPos = position;
    return info;
}

} // namespace

PageView::PageView(const PaperSize &paper, int page_count, double pixels_per_inch)
    : paper_(paper), page_count_(page_count), pixels_per_inch_(pixels_per_inch) {}

SIZE PageView::Extent() const {
    return {Pixels(paper_.width, PixelsPerInch()) + 2 * MARGIN,
            Pixels(paper_.height, PixelsPerInch()) + 2 * MARGIN};
}

RECT PageView::Sheet() const {
    const SIZE extent = Extent();
    const LONG left = Start(extent.cx, client_.cx, scroll_.x) + MARGIN;
    const LONG top = Start(extent.cy, client_.cy, scroll_.y) + MARGIN;
    return {left, top, left + extent.cx - 2 * MARGIN, top + extent.cy - 2 * MARGIN};
}

void PageView::Resize(SIZE client) {
    client_ = {std::max<LONG>(1, client.cx), std::max<LONG>(1, client.cy)};
    ApplyFit();
    Clamp();
}

void PageView::SetFit(Fit fit) {
    fit_ = fit;
    ApplyFit();
    Clamp();
}

void PageView::ApplyFit() {
    if (fit_ == Fit::NONE) return;
    const double across = (client_.cx - 2 * MARGIN) / (paper_.width * pixels_per_inch_);
    const double down = (client_.cy - 2 * MARGIN) / (paper_.height * pixels_per_inch_);
    zoom_ = std::clamp(fit_ == Fit::PAGE ? std::min(across, down) : across, ZOOM_LEAST, ZOOM_MOST);
}

void PageView::SetZoom(double zoom, POINT anchor) {
    const RECT before = Sheet();
    const double from_left = (anchor.x - before.left) / zoom_;
    const double from_top = (anchor.y - before.top) / zoom_;
    fit_ = Fit::NONE;
    zoom_ = std::clamp(zoom, ZOOM_LEAST, ZOOM_MOST);
    scroll_.x = std::lround(from_left * zoom_) + MARGIN - anchor.x;
    scroll_.y = std::lround(from_top * zoom_) + MARGIN - anchor.y;
    Clamp();
}

void PageView::StepZoom(int direction) { StepZoom(direction, {client_.cx / 2, client_.cy / 2}); }

void PageView::StepZoom(int direction, POINT anchor) {
    if (direction > 0) {
        const auto *above = std::upper_bound(std::begin(ZOOMS), std::end(ZOOMS), zoom_ + SAME);
        SetZoom(above == std::end(ZOOMS) ? ZOOM_MOST : *above, anchor);
    } else {
        const auto *reached = std::lower_bound(std::begin(ZOOMS), std::end(ZOOMS), zoom_ - SAME);
        SetZoom(reached == std::begin(ZOOMS) ? ZOOM_LEAST : *(reached - 1), anchor);
    }
}

void PageView::GoTo(int page) {
    page_ = std::clamp(page, 1, page_count_);
    scroll_.y = 0;
    Clamp();
}

void PageView::ScrollBy(int x, int y) {
    scroll_.x += x;
    const LONG last = Beyond(Extent().cy, client_.cy);
    if (y > 0 && scroll_.y >= last && page_ < page_count_) {
        GoTo(page_ + 1);
    } else if (y < 0 && scroll_.y <= 0 && page_ > 1) {
        --page_;
        scroll_.y = last;
    } else {
        scroll_.y += y;
    }
    Clamp();
}

void PageView::DragBy(int y) {
    scroll_.y += y;
    Clamp();
}

void PageView::Turn(int direction) {
    const int most = static_cast<int>(client_.cy) - OVERLAP;
    ScrollBy(0, direction * std::max(OVERLAP, most));
}

void PageView::Clamp() {
    const SIZE extent = Extent();
    scroll_.x = std::clamp<LONG>(scroll_.x, 0, Beyond(extent.cx, client_.cx));
    scroll_.y = std::clamp<LONG>(scroll_.y, 0, Beyond(extent.cy, client_.cy));
}

// Each page takes the longer of its extent and the client area, so that the bar reaches its end
// exactly at the end of the last page.
SCROLLINFO PageView::Vertical() const {
    const int length = static_cast<int>(std::max(Extent().cy, client_.cy));
    return Bar(page_count_ * length, static_cast<int>(client_.cy),
               (page_ - 1) * length + static_cast<int>(scroll_.y));
}

SCROLLINFO PageView::Horizontal() const {
    return Bar(static_cast<int>(Extent().cx), static_cast<int>(client_.cx),
               static_cast<int>(scroll_.x));
}

void PageView::ScrollToVertical(int position) {
    const int length = static_cast<int>(std::max(Extent().cy, client_.cy));
    page_ = std::clamp(position / length + 1, 1, page_count_);
    scroll_.y = position - (page_ - 1) * length;
    Clamp();
}

void PageView::ScrollToHorizontal(int position) {
    scroll_.x = position;
    Clamp();
}
