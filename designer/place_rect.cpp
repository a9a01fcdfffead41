#include "designer/place_rect.h"

#include <algorithm>
#include <utility>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "frame/fatal_error.h"
#include "frame/whole_numbers.h"

namespace tessarine {

namespace {

constexpr float INCH_TICK = 15.625f;         // form units: 1/16 inch
constexpr float CENTIMETRE_TICK = 0.984252f; // form units: 1/10 mm

int Nearest(float value) { return ToInt32(value + 0.5f); }

// A whole number of ticks; a size below half a tick gives 0.
float GridStep(Session *session) {
    const bool metric = session->form.Header.RulerFlags & RULER_CENTIMETRES;
    const float tick = metric ? CENTIMETRE_TICK : INCH_TICK;
    const auto size = static_cast<float>(DesignerOf(session).GridSize);
    return static_cast<float>(Nearest(size / tick)) * tick;
}

// Without a step all places are the first.
int OnGrid(int place, float step) {
    if (step == 0) return 0;
    return Nearest(static_cast<float>(Nearest(static_cast<float>(place) / step)) * step);
}

void PutInOrder(RECT *rectangle) {
    if (rectangle->left > rectangle->right) std::swap(rectangle->left, rectangle->right);
    if (rectangle->top > rectangle->bottom) std::swap(rectangle->top, rectangle->bottom);
}

// Strictly inside the bar's band, below its caption: what is taller loses height, what is wider
// keeps its width.
void HoldInBand(const RECT &band, int caption, RECT *rectangle) {
    const LONG width = rectangle->right - rectangle->left;
    const LONG height = rectangle->bottom - rectangle->top;
    rectangle->bottom = std::min(rectangle->bottom, band.bottom);
    rectangle->top = rectangle->bottom - height;
    if (rectangle->top <= band.top + caption) {
        rectangle->top = band.top + caption + 1;
        rectangle->bottom =
            std::max(rectangle->top, std::min(rectangle->top + height, band.bottom));
    }
    if (rectangle->left <= band.left) rectangle->left = band.left + 1;
    rectangle->right = rectangle->left + width;
    if (rectangle->right >= band.right) {
        rectangle->right = band.right - 1;
        rectangle->left = rectangle->right - width;
    }
}

} // namespace

int SectionAt(Session *session, int y) {
    int first = NO_ROW;
    int last = NO_ROW;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (item.ItemType != ITEM_BAR) continue;
        if (y >= item.y && y <= item.y + item.height) return row;
        if (first == NO_ROW) first = row;
        last = row;
    }
    if (first == NO_ROW) FatalError(session, "Error Section Selection", CODE_DISPLAY);
    return y < 0 ? first : last;
}

int SnapX(Session *session, int x) {
    return std::max(OnGrid(x, GridStep(session)), int{session->form.Items[0].x});
}

int SnapY(Session *session, int y, int bar) {
    const int base = session->form.Items[bar].y + session->form.Header.BarHeight;
    return std::max(base + OnGrid(y - base, GridStep(session)), int{session->form.Items[0].y});
}

void SnapRect(Session *session, RECT *rectangle, int bar) {
    if (bar == NO_ROW) bar = SectionAt(session, rectangle->top);
    const LONG width = rectangle->right - rectangle->left;
    const LONG height = rectangle->bottom - rectangle->top;
    rectangle->left = SnapX(session, rectangle->left);
    rectangle->top = SnapY(session, rectangle->top, bar);
    rectangle->right = rectangle->left + width;
    rectangle->bottom = rectangle->top + height;
}

int PlaceRect(Session *session) {
    Designer &designer = DesignerOf(session);
    PutInOrder(&designer.FocusRect);
    const int row = SectionAt(session, designer.FocusRect.top);
    const ItemRecord &bar = session->form.Items[row];
    const bool group = designer.PendingCommand == COMMAND_BAND || IsGroupSelected(session);
    if (!group) {
        if (designer.SnapToGrid) SnapRect(session, &designer.FocusRect, row);
        HoldInBand(RectOf(bar), session->form.Header.BarHeight, &designer.FocusRect);
    }
    return bar.SectionIndex;
}

} // namespace tessarine
