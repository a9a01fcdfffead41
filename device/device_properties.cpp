#include "device/device_properties.h"

#include <cstdio>
#include <initializer_list>

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
    if (session->OutputToFile) {
        const HDC screen = GetDC(nullptr);
        if (!screen) FatalError(session, "Unable to retrieve a Display Context.", CODE_DISPLAY);
        TakePixels(session, screen);
        ReleaseDC(nullptr, screen);
    }
    session->drawing.ScreenDC = GetDC(session->Window);
    if (!session->drawing.ScreenDC)
        FatalError(session, "Unable to allocate a Display Context.", CODE_DISPLAY);
    TakePixels(session, session->drawing.ScreenDC);
    ApplyMapping(session, session->drawing.ScreenDC);
}

const char *DefaultFace(const Session *session) {
    if (session->SessionKind != KIND_DESIGNER) return REPORT_FONT;
    if (*session->FormBlock.DefaultFont) return session->FormBlock.DefaultFont;
    return LOWORD(GetVersion()) == VERSION_WITHOUT_ARIAL ? "Helv" : "Arial";
}

void MakeSystemFont(Session *session) {
    DeviceState &device = session->device;
    session->form.FontCount = 1;
    if (!SetDefaultFont(session, session->drawing.ScreenDC, 0, DefaultFace(session), FONT_POINTS))
        FatalError(session, "Error Creating Font(InitDeviceProp)", CODE_DISPLAY);
    device.FontHeight = static_cast<int32_t>(session->form.Fonts[0].Height);
    if (!SelectObject(session->drawing.ScreenDC, session->form.Fonts[0].Font))
        FatalError(session, "Unable to select the font.", CODE_DISPLAY);
    if (!GetTextMetricsA(session->drawing.ScreenDC, &device.Metrics))
        FatalError(session, "Unable to get text metric for the font.", CODE_DISPLAY);
}

void SelectStockObjects(HDC device) {
    for (const int object : {NULL_BRUSH, NULL_PEN, SYSTEM_FONT})
        SelectObject(device, GetStockObject(object));
}

void MakeBrushesAndPens(Session *session) {
    DeviceState &device = session->device;
    if (!device.BackBrush) device.BackBrush = CreateSolidBrush(session->palette.BackColor);
    if (!device.ForeBrush) device.ForeBrush = CreateSolidBrush(session->palette.ForeColor);
    if (!device.GreyBrush) device.GreyBrush = CreateSolidBrush(session->palette.GreyColor);
    if (!device.BackBrush || !device.ForeBrush || !device.GreyBrush)
        FatalError(session, "Unable to create brushes.", CODE_DISPLAY);
    if (!device.SolidPen)
        device.SolidPen = CreatePen(PS_SOLID, PEN_WIDTH, session->palette.ForeColor);
    if (!device.DotPen) device.DotPen = CreatePen(PS_DOT, PEN_WIDTH, session->palette.ForeColor);
    if (!device.GroupPen)
        device.GroupPen = CreatePen(PS_SOLID, PEN_WIDTH, session->palette.GroupColor);
    if (!device.SolidPen || !device.DotPen || !device.GroupPen)
        FatalError(session, "Unable to create pens.", CODE_DISPLAY);
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
                  static_cast<unsigned>(reinterpret_cast<UINT_PTR>(session->Window)));
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

} // namespace

void InitDeviceProp(Session *session) {
    DeviceState &device = session->device;
    ClearFontTable(session);
    device.WaitCursor = StockCursor(IDC_WAIT);
    device.ArrowCursor = StockCursor(IDC_ARROW);
    if (session->OutputToPrinter) return;
    OpenScreen(session);
    MakeSystemFont(session);
    device.PropertiesMade = 1;
    MakeBrushesAndPens(session);
    if (session->SessionKind == KIND_DESIGNER) LoadDesignerCursors(&device);
    RegisterClipFormat(session);
}

void ReleaseScreen(Session *session) {
    if (!session->drawing.ScreenDC) return;
    SelectStockObjects(session->drawing.ScreenDC);
    if (session->OutputToPrinter)
        DeleteDC(session->drawing.ScreenDC);
    else
        ReleaseDC(session->Window, session->drawing.ScreenDC);
    session->drawing.ScreenDC = nullptr;
}

void ReleaseDeviceProp(Session *session) {
    DeviceState &device = session->device;
    ReleaseScreen(session);
    ReleaseInfoDevice(session);
    if (!device.PropertiesMade) return;
    for (HPEN *pen : {&device.SolidPen, &device.DotPen, &device.GroupPen}) DropObject(pen);
    for (HBRUSH *brush : {&device.BackBrush, &device.ForeBrush, &device.GreyBrush})
        DropObject(brush);
    device.PropertiesMade = 0;
}

} // namespace tessarine
