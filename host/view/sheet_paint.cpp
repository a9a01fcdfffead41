#include "host/view/sheet_paint.h"

#include "host/export/page_play.h"

namespace {

constexpr COLORREF DESK = RGB(112, 118, 126);
constexpr COLORREF SHADOW = RGB(70, 74, 80);
constexpr int SHADOW_DEPTH = 4; // pixels

void Fill(HDC device, const RECT &place, COLORREF color) {
    SetDCBrushColor(device, color);
    FillRect(device, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void PaintPage(HDC device, const RECT &sheet, const SheetPage &page) {
    RECT shadow = sheet;
    OffsetRect(&shadow, SHADOW_DEPTH, SHADOW_DEPTH);
    Fill(device, shadow, SHADOW);
    Fill(device, sheet, RGB(255, 255, 255));
    if (!page.metafile) {
        RECT place = sheet;
        DrawTextA(device, page.failure.c_str(), -1, &place, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX);
        return;
    }
    const int state = SaveDC(device);
    IntersectClipRect(device, sheet.left, sheet.top, sheet.right, sheet.bottom);
    PlayPage(device, page.metafile, {sheet.left, sheet.top}, page.pixels_per_inch);
    RestoreDC(device, state);
}

} // namespace

void PaintSheet(HDC device, const RECT &client, const RECT &sheet, const SheetPage &page) {
    const HDC memory = CreateCompatibleDC(device);
    const HBITMAP bitmap = CreateCompatibleBitmap(device, client.right, client.bottom);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    Fill(memory, client, DESK);
    PaintPage(memory, sheet, page);
    BitBlt(device, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
}
