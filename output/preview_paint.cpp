#include "output/preview_paint.h"

#include <cstdio>

#include "canvas/canvas.h"
#include "form/label_measure.h"
#include "frame/owned.h"
#include "output/report_file.h"
#include "paint/strokes.h"

namespace tessarine {

namespace {

constexpr int FIT_BORDER = 25; // form units kept free beside a fitted sheet
constexpr int TEXT_LENGTH = 80;

// A page may leave its own pens, colours and modes behind.
void PlayPage(const Session *session, HDC device) {
    if (!session->pages.ShownPage) return;
    const int saved = SaveDC(device);
    PlayMetaFile(device, session->pages.ShownPage);
    RestoreDC(device, saved);
}

// The true end of a report shows at a glance: solid red instead of dots.
void MarkPageEnd(const Session *session) {
    const bool last = session->report.RunPhase == PHASE_FINISHED &&
                      session->pages.ShownPageIndex == session->report.PageCount - 1;
    const HDC device = session->view.MemoryDC;
    const HGDIOBJ old_pen =
        SelectObject(device, last ? session->device.GroupPen : session->device.DotPen);
    const int bottom = session->report.PageBottomUnits;
    DrawStroke(device, {0, bottom}, {session->report.PageWidthUnits, bottom});
    SelectObject(device, old_pen);
}

void PaintActualSize(const Session *session) {
    const HDC device = session->view.MemoryDC;
    const RECT visible = VisibleRectangle(session);
    FillRect(device, &visible, session->device.BackBrush);
    const OwnedDrawingObject clip(CreateRectRgnIndirect(&session->view.ClipRect));
    SelectClipRgn(device, static_cast<HRGN>(clip.Get()));
    PlayPage(session, device);
    MarkPageEnd(session);
    CopyToWindow(session, visible);
    SelectClipRgn(device, nullptr);
}

// The largest sheet of the paper's proportions that fits the view, in its middle.
RECT FittedSheet(const Session *session) {
    const ViewState &view = session->view;
    const double paper_width = session->printer.PaperWidth;
    const double paper_height = session->printer.PaperHeight;
    int height = view.ViewHeight - FIT_BORDER;
    int width = static_cast<int>(height * paper_width / paper_height);
    if (width >= view.ViewWidth) {
        width = view.ViewWidth - FIT_BORDER;
        height = static_cast<int>(width * paper_height / paper_width);
    }
    const int left = (view.ViewWidth - width) / 2;
    const int top = (view.ViewHeight - height) / 2;
    return RECT{left, top, left + width, top + height};
}

struct Mapping {
    POINT viewport_origin;
    SIZE viewport_extent;
    POINT window_origin;
    SIZE window_extent;
};

Mapping MappingOf(HDC device) {
    Mapping mapping{};
    GetViewportOrgEx(device, &mapping.viewport_origin);
    GetViewportExtEx(device, &mapping.viewport_extent);
    GetWindowOrgEx(device, &mapping.window_origin);
    GetWindowExtEx(device, &mapping.window_extent);
    return mapping;
}

// Maps the paper on the sheet, with the page's origin at the printer's unprintable offset.
void MapPaperOnSheet(const Session *session, const RECT &sheet, int paperWidth, int paperHeight) {
    const HDC device = session->drawing.ScreenDC;
    const Mapping old = MappingOf(device);
    const int width = sheet.right - sheet.left;
    const int height = sheet.bottom - sheet.top;
    const int x = sheet.left + MulDiv(session->printer.PrintOffsetX, width, paperWidth);
    const int y = sheet.top + MulDiv(session->printer.PrintOffsetY, height, paperHeight);
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, paperWidth, paperHeight, nullptr);
    SetViewportExtEx(device, MulDiv(width, old.viewport_extent.cx, old.window_extent.cx),
                     MulDiv(height, old.viewport_extent.cy, old.window_extent.cy), nullptr);
    SetViewportOrgEx(device,
                     MulDiv(x - old.window_origin.x, old.viewport_extent.cx, old.window_extent.cx) +
                         old.viewport_origin.x,
                     MulDiv(y - old.window_origin.y, old.viewport_extent.cy, old.window_extent.cy) +
                         old.viewport_origin.y,
                     nullptr);
}

// The rectangle one device pixel further right and down; a pixel is no whole number of units.
RECT PixelFurther(HDC device, RECT place) {
    POINT *corners = reinterpret_cast<POINT *>(&place);
    LPtoDP(device, corners, 2);
    OffsetRect(&place, 1, 1);
    DPtoLP(device, corners, 2);
    return place;
}

void DrawSheetFrame(const Session *session, const RECT &sheet) {
    const HDC device = session->drawing.ScreenDC;
    const RECT shadow = PixelFurther(device, sheet);
    const HGDIOBJ old_pen = SelectObject(device, GetStockObject(BLACK_PEN));
    DrawFrame(device, sheet);
    DrawStroke(device, {shadow.right, shadow.top}, {shadow.right, shadow.bottom});
    DrawStroke(device, {shadow.right, shadow.bottom}, {shadow.left, shadow.bottom});
    SelectObject(device, old_pen);
}

void PaintFitted(const Session *session) {
    const int paper_width = static_cast<int>(session->printer.PaperWidth * 250.0);
    const int paper_height = static_cast<int>(session->printer.PaperHeight * 250.0);
    if (paper_width < 1 || paper_height < 1) return;
    const RECT sheet = FittedSheet(session);
    if (sheet.right <= sheet.left) return;
    const HDC device = session->drawing.ScreenDC;
    FillRect(device, &sheet, session->device.BackBrush);
    const int saved = SaveDC(device);
    MapPaperOnSheet(session, sheet, paper_width, paper_height);
    if (session->pages.ShownPage) PlayMetaFile(device, session->pages.ShownPage);
    RestoreDC(device, saved);
    DrawSheetFrame(session, sheet);
}

void StripText(const Session *session, const RECT &strip, int x, int line, const char *text) {
    ExtTextOutA(session->view.MemoryDC, x, strip.top + line * session->device.FontHeight,
                ETO_CLIPPED, &strip, text, static_cast<UINT>(lstrlenA(text)), nullptr);
}

void WriteStrip(const Session *session, const RECT &strip) {
    const bool finished = session->report.RunPhase == PHASE_FINISHED;
    char text[TEXT_LENGTH];
    std::snprintf(text, sizeof text, finished ? "   Last Page: %d" : "   Processing Page# %d",
                  session->report.PageCount);
    StripText(session, strip, strip.left, 0, text);
    std::snprintf(text, sizeof text, finished ? "   Record Count: %d" : "   Processing Record#: %d",
                  session->report.RecordCount);
    StripText(session, strip, strip.left, 1, text);
    if (!finished && session->report.PageCount < 2) return;
    std::snprintf(text, sizeof text, "Current Page: %d   ", session->pages.ShownPageIndex + 1);
    StripText(session, strip, strip.right - GetLabelLen(session->form.Fonts[0], text), 1, text);
}

} // namespace

void PaintStatusStrip(Session *session) {
    if (!session->view.PaintEnabled || session->IgnoreMessages) return;
    const int page_on_view = session->pages.ShownPage ? session->pages.ShownPageIndex + 1 : 0;
    session->Preview = {page_on_view, FinishedPages(session)};
    const HDC device = session->view.MemoryDC;
    RECT strip = VisibleRectangle(session);
    strip.bottom = strip.top;
    strip.top -= session->view.RulerBandHeight;
    FillRect(device, &strip, session->device.GreyBrush);
    const int saved = SaveDC(device);
    SelectObject(device, session->form.Fonts[0].Font ? session->form.Fonts[0].Font
                                                     : GetStockObject(SYSTEM_FONT));
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, session->palette.ForeColor);
    WriteStrip(session, strip);
    RestoreDC(device, saved);
    CopyToWindow(session, strip);
}

void PaintPreview(Session *session) {
    if (!session->view.PaintEnabled || session->IgnoreMessages) return;
    if (session->preview.FitPage) session->view.OriginX = session->view.OriginY = 0;
    ApplyOrigin(session);
    PaintStatusStrip(session);
    if (session->preview.FitPage)
        PaintFitted(session);
    else
        PaintActualSize(session);
    ValidateRect(session->Window, nullptr);
}

} // namespace tessarine
