#include "canvas/canvas.h"

#include <algorithm>

#include "canvas/scroll_bars.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

[[noreturn]] void Refuse(Session *session) {
    FatalError(session, "Unable to create compatible DC", CODE_DISPLAY);
}

void DropBitmap(ViewState *view) {
    if (!view->OffscreenBitmap) return;
    SelectObject(view->MemoryDC, view->OldBitmap);
    DeleteObject(view->OffscreenBitmap);
    view->OffscreenBitmap = nullptr;
    view->OldBitmap = nullptr;
}

void DropContext(HDC *device) {
    if (!*device) return;
    DeleteDC(*device);
    *device = nullptr;
}

void MakeContexts(Session *session) {
    ReleaseCanvas(session);
    for (HDC *context : {&session->view.MemoryDC, &session->view.MemoryDC2}) {
        *context = CreateCompatibleDC(session->drawing.ScreenDC);
        if (!*context) Refuse(session);
        ApplyMapping(session, *context);
    }
}

void RemakeBitmap(Session *session, SIZE wanted) {
    ViewState &view = session->view;
    const int width = std::max<int>(wanted.cx, 1);
    const int height = std::max<int>(wanted.cy, 1);
    BITMAP current{};
    if (view.OffscreenBitmap) GetObjectA(view.OffscreenBitmap, sizeof current, &current);
    if (current.bmWidth == width && current.bmHeight == height) return;
    DropBitmap(&view);
    view.OffscreenBitmap = CreateCompatibleBitmap(session->drawing.ScreenDC, width, height);
    if (!view.OffscreenBitmap) Refuse(session);
    view.OldBitmap = static_cast<HBITMAP>(SelectObject(view.MemoryDC, view.OffscreenBitmap));
}

POINT OriginOf(const ViewState &view) {
    return {std::max<LONG>(view.OriginX, 0), std::max<LONG>(view.OriginY, 0)};
}

// The area below the band shows the page or the form from the view's origin.
void PlaceBelowBand(const Session *session, HDC device) {
    ApplyMapping(session, device);
    const int top =
        MulDiv(session->view.RulerBandHeight, session->drawing.LogPixelsY, UNITS_PER_INCH);
    SetViewportOrgEx(device, 0, top, nullptr);
}

} // namespace

void MakeCanvas(Session *session) {
    if (!session->device.PropertiesMade) return;
    MakeContexts(session);
    ShowScrollBars(session);
    ResizeCanvas(session);
    SetBkMode(session->drawing.ScreenDC, OPAQUE);
    if (session->view.PaintEnabled) ValidateRect(session->Window, nullptr);
}

void ReleaseCanvas(Session *session) {
    DropBitmap(&session->view);
    DropContext(&session->view.MemoryDC);
    DropContext(&session->view.MemoryDC2);
}

// Areas of the window in form units; the bitmap is made anew only when its size changes.
void ResizeCanvas(Session *session) {
    ViewState &view = session->view;
    if (!view.PaintEnabled || !view.MemoryDC) return;
    RECT client{};
    GetClientRect(session->Window, &client);
    view.ClipRect = client;
    view.ViewWidth = MulDiv(client.right, UNITS_PER_INCH, session->drawing.LogPixelsX) + 1;
    const int height = MulDiv(client.bottom, UNITS_PER_INCH, session->drawing.LogPixelsY);
    view.ViewHeight = std::max(height - view.RulerBandHeight, 0) + 1;
    PlaceBelowBand(session, session->drawing.ScreenDC);
    PlaceBelowBand(session, view.MemoryDC);
    ApplyOrigin(session);
    RemakeBitmap(session,
                 view.FixedBitmap.cx ? view.FixedBitmap : SIZE{client.right, client.bottom});
}

void ApplyOrigin(const Session *session) {
    const POINT origin = OriginOf(session->view);
    SetWindowOrgEx(session->drawing.ScreenDC, origin.x, origin.y, nullptr);
    SetWindowOrgEx(session->view.MemoryDC, origin.x, origin.y, nullptr);
}

RECT VisibleRectangle(const Session *session) {
    const ViewState &view = session->view;
    const POINT origin = OriginOf(view);
    return RECT{origin.x, origin.y, origin.x + view.ViewWidth, origin.y + view.ViewHeight};
}

void CopyToWindow(const Session *session, const RECT &part) {
    BitBlt(session->drawing.ScreenDC, part.left, part.top, part.right - part.left,
           part.bottom - part.top, session->view.MemoryDC, part.left, part.top, SRCCOPY);
}

} // namespace tessarine
