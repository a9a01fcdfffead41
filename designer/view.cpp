#include "designer/view.h"

#include <algorithm>

#include "canvas/canvas.h"
#include "canvas/scroll_bars.h"
#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/item_table.h"

namespace tessarine {

namespace {

// A bar is seldom in view as a whole, and the edge that a size drag holds is under the pointer.
bool StaysPut(Session *session) {
    const ItemRecord *item = Selected(session);
    return (item && item->ItemType == ITEM_BAR) ||
           DesignerOf(session).PendingCommand == COMMAND_SIZE;
}

void CentreAcross(const Session *session, const RECT &rectangle, int *origin) {
    const ViewState &view = session->view;
    const int width = rectangle.right - rectangle.left;
    const bool shown =
        rectangle.left >= view.OriginX && rectangle.right <= view.OriginX + view.ViewWidth;
    if (shown || width >= view.ViewWidth) return;
    const int wanted = rectangle.left - (view.ViewWidth - width) / 2;
    *origin = std::max(std::min(wanted, session->printer.ReportWidth), 0);
}

void CentreDown(const Session *session, const RECT &rectangle, int *origin) {
    const ViewState &view = session->view;
    const int height = rectangle.bottom - rectangle.top;
    const bool shown =
        rectangle.top > view.OriginY && rectangle.bottom < view.OriginY + view.ViewHeight;
    if (shown || height >= view.ViewHeight) return;
    *origin = std::max<int>(rectangle.top - (view.ViewHeight - height) / 2, 0);
}

// A repaint gives FocusRect the place of the selected item, but here it is on its way to another.
void RepaintKeepingFocus(Session *session) {
    const RECT kept = DesignerOf(session).FocusRect;
    DesignerOf(session).PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
    if (session->State == STATE_ENDING) return;
    Designer &designer = DesignerOf(session);
    const bool shown = designer.FocusVisible;
    HideFocus(session);
    designer.FocusRect = kept;
    if (shown) ShowFocus(session);
}

} // namespace

POINT DeviceToForm(const Session *session, POINT pixel) {
    const DrawingState &drawing = session->drawing;
    return {MulDiv(pixel.x, UNITS_PER_INCH, drawing.LogPixelsX) + session->view.OriginX,
            MulDiv(pixel.y - CanvasTop(session), UNITS_PER_INCH, drawing.LogPixelsY) +
                session->view.OriginY};
}

POINT FormToDevice(const Session *session, POINT place) {
    const DrawingState &drawing = session->drawing;
    return {MulDiv(place.x - session->view.OriginX, drawing.LogPixelsX, UNITS_PER_INCH),
            MulDiv(place.y - session->view.OriginY, drawing.LogPixelsY, UNITS_PER_INCH) +
                CanvasTop(session)};
}

POINT PixelOfMessage(LPARAM lParam) {
    return {static_cast<int16_t>(LOWORD(lParam)), static_cast<int16_t>(HIWORD(lParam))};
}

POINT PlaceOfMessage(const Session *session, LPARAM lParam) {
    return DeviceToForm(session, PixelOfMessage(lParam));
}

int CanvasTop(const Session *session) {
    return MulDiv(session->view.RulerBandHeight, session->drawing.LogPixelsY, UNITS_PER_INCH);
}

void ClampOrigin(Session *session) {
    ViewState &view = session->view;
    view.OriginX = std::min(std::max(view.OriginX, 0), session->printer.ReportWidth);
    view.OriginY = std::min(std::max(view.OriginY, 0), session->form.ReportHeight);
    ApplyOrigin(session);
}

void SyncScrollBars(Session *session) {
    const ViewState &view = session->view;
    if (view.HorzScroll)
        MoveScrollBar(session, SB_HORZ, view.OriginX, session->printer.ReportWidth);
    if (view.VertScroll) MoveScrollBar(session, SB_VERT, view.OriginY, session->form.ReportHeight);
}

void MoveCursorTo(const Session *session, int x, int y) {
    POINT pixel = FormToDevice(session, {x, y});
    if (ClientToScreen(session->Window, &pixel)) SetCursorPos(pixel.x, pixel.y);
}

int EnsureVisible(Session *session, const RECT &rectangle) {
    if (StaysPut(session)) return 0;
    ViewState &view = session->view;
    int x = view.OriginX;
    int y = view.OriginY;
    CentreAcross(session, rectangle, &x);
    CentreDown(session, rectangle, &y);
    if (x == view.OriginX && y == view.OriginY) return 0;
    view.OriginX = x;
    view.OriginY = y;
    RepaintKeepingFocus(session);
    if (session->State != STATE_ENDING) SyncScrollBars(session);
    return 1;
}

} // namespace tessarine
