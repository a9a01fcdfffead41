#include "device/device_properties.h"

#include <algorithm>
#include <cstdio>

#include "form/fonts.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"

namespace tessarine {

namespace {

constexpr WORD VERSION_WITHOUT_ARIAL = 3; // 3.0: the major version in the low byte
constexpr const char *REPORT_FONT = "Courier New";
constexpr int FONT_POINTS = 11;
constexpr int PEN_WIDTH = 1;

void ClearFontTable(Session *session) {
    for (int row = 0; row < MAX_FONTS; ++row) ClearFontRow(session, row);
    session->form.FontCount = 0;
}

void OpenScreen(Session *session) {
    DeviceState &device = session->device;
    if (session->run.OutputToFile) {
        const HDC screen = GetDC(nullptr);
        if (!screen) FatalError(session, "Unable to retrieve a Display Context.", CODE_DISPLAY);
        TakePixels(session, screen);
        ReleaseDC(nullptr, screen);
    }
    device.ScreenDC = GetDC(device.Window);
    if (!device.ScreenDC)
        FatalError(session, "Unable to allocate a Display Context.", CODE_DISPLAY);
    TakePixels(session, device.ScreenDC);
    ApplyMapping(session, device.ScreenDC);
}

const char *DefaultFace(const Session *session) {
    if (session->SessionKind != KIND_DESIGNER) return REPORT_FONT;
    if (*session->FormBlock.DefaultFont) return session->FormBlock.DefaultFont;
    return LOWORD(GetVersion()) == VERSION_WITHOUT_ARIAL ? "Helv" : "Arial";
}

void MakeSystemFont(Session *session) {
    DeviceState &device = session->device;
    session->form.FontCount = 1;
    if (!SetDefaultFont(session, device.ScreenDC, 0, DefaultFace(session), FONT_POINTS))
        FatalError(session, "Error Creating Font(InitDeviceProp)", CODE_DISPLAY);
    device.FontHeight = static_cast<int32_t>(session->form.Fonts[0].Height);
    if (!SelectObject(device.ScreenDC, session->form.Fonts[0].Font))
        FatalError(session, "Unable to select the font.", CODE_DISPLAY);
    if (!GetTextMetricsA(device.ScreenDC, &device.Metrics))
        FatalError(session, "Unable to get text metric for the font.", CODE_DISPLAY);
}

void DropBitmap(DeviceState *device) {
    if (!device->OffscreenBitmap) return;
    SelectObject(device->MemoryDC, device->OldBitmap);
    DeleteObject(device->OffscreenBitmap);
    device->OffscreenBitmap = nullptr;
    device->OldBitmap = nullptr;
}

void SelectStockObjects(HDC device) {
    for (const int object : {NULL_BRUSH, NULL_PEN, SYSTEM_FONT})
        SelectObject(device, GetStockObject(object));
}

void DropContext(HDC *device) {
    if (!*device) return;
    SelectStockObjects(*device);
    DeleteDC(*device);
    *device = nullptr;
}

void MakeMemoryContexts(Session *session) {
    DeviceState &device = session->device;
    DropBitmap(&device);
    DropContext(&device.MemoryDC);
    DropContext(&device.MemoryDC2);
    for (HDC *context : {&device.MemoryDC, &device.MemoryDC2}) {
        *context = CreateCompatibleDC(device.ScreenDC);
        if (!*context) FatalError(session, "Unable to create compatible DC", CODE_DISPLAY);
        ApplyMapping(session, *context);
    }
    ResizeCanvas(session);
    SetBkMode(device.ScreenDC, OPAQUE);
}

void MakeBrushesAndPens(Session *session) {
    DeviceState &device = session->device;
    if (!device.BackBrush) device.BackBrush = CreateSolidBrush(device.BackColor);
    if (!device.ForeBrush) device.ForeBrush = CreateSolidBrush(device.ForeColor);
    if (!device.GreyBrush) device.GreyBrush = CreateSolidBrush(device.GreyColor);
    if (!device.BackBrush || !device.ForeBrush || !device.GreyBrush)
        FatalError(session, "Unable to create brushes.", CODE_DISPLAY);
    if (!device.SolidPen) device.SolidPen = CreatePen(PS_SOLID, PEN_WIDTH, device.ForeColor);
    if (!device.DotPen) device.DotPen = CreatePen(PS_DOT, PEN_WIDTH, device.ForeColor);
    if (!device.GroupPen) device.GroupPen = CreatePen(PS_SOLID, PEN_WIDTH, device.GroupColor);
    if (!device.SolidPen || !device.DotPen || !device.GroupPen)
        FatalError(session, "Unable to create pens.", CODE_DISPLAY);
}

void ShowBar(Session *session, int bar) {
    const HWND window = session->device.Window;
    ShowScrollBar(window, bar, TRUE);
    SetScrollRange(window, bar, 0, 100, FALSE);
    SetScrollPos(window, bar, 0, TRUE);
    ResizeCanvas(session);
}

HCURSOR StockCursor(LPCSTR name) { return LoadCursorA(nullptr, name); }

void LoadDesignerCursors(DeviceState *device) {
    device->CrossCursor = StockCursor(IDC_CROSS);
    device->SizeWECursor = StockCursor(IDC_SIZEWE);
    device->SizeNSCursor = StockCursor(IDC_SIZENS);
    device->SizeNESWCursor = StockCursor(IDC_SIZENESW);
    device->SizeNWSECursor = StockCursor(IDC_SIZENWSE);
}

void RegisterClipFormat(Session *session) {
    char name[32];
    std::snprintf(name, sizeof name, "RepClip%x",
                  static_cast<unsigned>(reinterpret_cast<UINT_PTR>(session->device.Window)));
    session->device.ClipFormat = RegisterClipboardFormatA(name);
}

void ReleaseInfoDevice(Session *session) {
    PrinterState &printer = session->printer;
    if (!printer.InfoDevice) return;
    SelectObject(printer.InfoDevice, GetStockObject(SYSTEM_FONT));
    DeleteDC(printer.InfoDevice);
    printer.InfoDevice = nullptr;
}

template <typename Handle> void DropObject(Handle *handle) {
    if (*handle) DeleteObject(*handle);
    *handle = nullptr;
}

// In pixels: the window's client area, or in fitted mode a page of one pixel a unit.
SIZE BitmapSize(const Session *session, const RECT &client) {
    if (session->view.FitPage) return {session->run.PageWidthUnits, session->run.PageBottomUnits};
    return {client.right, client.bottom};
}

void RemakeBitmap(Session *session, const RECT &client) {
    DeviceState &device = session->device;
    const SIZE wanted = BitmapSize(session, client);
    const int width = std::max<int>(wanted.cx, 1);
    const int height = std::max<int>(wanted.cy, 1);
    BITMAP current{};
    if (device.OffscreenBitmap) GetObjectA(device.OffscreenBitmap, sizeof current, &current);
    if (current.bmWidth == width && current.bmHeight == height) return;
    DropBitmap(&device);
    device.OffscreenBitmap = CreateCompatibleBitmap(device.ScreenDC, width, height);
    if (!device.OffscreenBitmap)
        FatalError(session, "Unable to create compatible DC", CODE_DISPLAY);
    device.OldBitmap = static_cast<HBITMAP>(SelectObject(device.MemoryDC, device.OffscreenBitmap));
}

// The page area begins below the band, and shows the page from the view's origin.
void PlaceOrigins(const Session *session, HDC device) {
    const ViewState &view = session->view;
    ApplyMapping(session, device);
    const int top = MulDiv(view.RulerBandHeight, session->device.LogPixelsY, UNITS_PER_INCH);
    SetViewportOrgEx(device, 0, top, nullptr);
    SetWindowOrgEx(device, std::max(view.OriginX, 0), std::max(view.OriginY, 0), nullptr);
}

} // namespace

// Areas of the window in form units; the bitmap is made anew only when its size changes.
void ResizeCanvas(Session *session) {
    DeviceState &device = session->device;
    ViewState &view = session->view;
    if (!session->run.OutputToScreen || !device.Window || !device.MemoryDC) return;
    RECT client{};
    GetClientRect(device.Window, &client);
    view.ClipRect = client;
    view.ViewWidth = MulDiv(client.right, UNITS_PER_INCH, device.LogPixelsX) + 1;
    const int height = MulDiv(client.bottom, UNITS_PER_INCH, device.LogPixelsY);
    view.ViewHeight = std::max(height - view.RulerBandHeight, 0) + 1;
    PlaceOrigins(session, device.ScreenDC);
    PlaceOrigins(session, device.MemoryDC);
    RemakeBitmap(session, client);
}

void InitDeviceProp(Session *session) {
    DeviceState &device = session->device;
    ClearFontTable(session);
    device.WaitCursor = StockCursor(IDC_WAIT);
    device.ArrowCursor = StockCursor(IDC_ARROW);
    if (session->run.OutputToPrinter) return;
    OpenScreen(session);
    MakeSystemFont(session);
    device.PropertiesMade = 1;
    MakeMemoryContexts(session);
    MakeBrushesAndPens(session);
    if (session->view.HorzScroll) ShowBar(session, SB_HORZ);
    if (session->view.VertScroll) ShowBar(session, SB_VERT);
    if (session->SessionKind == KIND_DESIGNER) LoadDesignerCursors(&device);
    RegisterClipFormat(session);
    if (session->view.PaintEnabled) ValidateRect(device.Window, nullptr);
}

void ReleaseScreen(Session *session) {
    DeviceState &device = session->device;
    if (!device.ScreenDC) return;
    SelectStockObjects(device.ScreenDC);
    if (session->run.OutputToPrinter)
        DeleteDC(device.ScreenDC);
    else
        ReleaseDC(device.Window, device.ScreenDC);
    device.ScreenDC = nullptr;
}

void ReleaseDeviceProp(Session *session) {
    DeviceState &device = session->device;
    ReleaseScreen(session);
    ReleaseInfoDevice(session);
    DropBitmap(&device);
    if (!device.PropertiesMade) return;
    DropContext(&device.MemoryDC);
    DropContext(&device.MemoryDC2);
    for (HPEN *pen : {&device.SolidPen, &device.DotPen, &device.GroupPen}) DropObject(pen);
    for (HBRUSH *brush : {&device.BackBrush, &device.ForeBrush, &device.GreyBrush})
        DropObject(brush);
    device.PropertiesMade = 0;
}

} // namespace tessarine
