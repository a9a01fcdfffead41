#include "tools/shot/contact_sheet.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "host/export/picture.h"

namespace {

constexpr LONG SHEET_WIDTH = 1900; // pixels
constexpr LONG GAP = 16;
constexpr LONG CAPTION = 18;

struct Sheet {
    std::string name; // of the template
    HWND window;
    SIZE size;
    POINT place; // of its caption
};

// Without a procedure, as the template says. It stands alone on the screen while it is drawn.
HWND Open(HMODULE library, const char *name) {
    const HWND window = CreateDialogParamA(library, name, nullptr, nullptr, 0);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE);
    return window;
}

BOOL CALLBACK TakeName(HMODULE library, LPCSTR, LPSTR name, LONG_PTR sheets) {
    const HWND window = Open(library, name);
    RECT place{};
    GetWindowRect(window, &place);
    reinterpret_cast<std::vector<Sheet> *>(sheets)->push_back(
        {name, window, {place.right - place.left, place.bottom - place.top}, {}});
    return TRUE;
}

// In rows, the highest first; the height of all.
LONG Arrange(std::vector<Sheet> *sheets) {
    std::stable_sort(sheets->begin(), sheets->end(),
                     [](const Sheet &a, const Sheet &b) { return a.size.cy > b.size.cy; });
    POINT next{GAP, GAP};
    LONG row = 0;
    for (Sheet &sheet : *sheets) {
        if (next.x + sheet.size.cx + GAP > SHEET_WIDTH) {
            next = {GAP, next.y + row + GAP};
            row = 0;
        }
        sheet.place = next;
        next.x += sheet.size.cx + GAP;
        row = std::max(row, CAPTION + sheet.size.cy);
    }
    return next.y + row + GAP;
}

void Draw(HDC device, const Sheet &sheet) {
    ShowWindow(sheet.window, SW_SHOW);
    RedrawWindow(sheet.window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    const HDC source = GetWindowDC(sheet.window);
    TextOutA(device, sheet.place.x, sheet.place.y, sheet.name.c_str(),
             static_cast<int>(sheet.name.size()));
    BitBlt(device, sheet.place.x, sheet.place.y + CAPTION, sheet.size.cx, sheet.size.cy, source, 0,
           0, SRCCOPY);
    ReleaseDC(sheet.window, source);
    DestroyWindow(sheet.window);
}

} // namespace

void TakeDialogs(const std::string &picture) {
    std::vector<Sheet> sheets;
    EnumResourceNamesA(GetModuleHandleA("tessarine.dll"), MAKEINTRESOURCEA(5), TakeName,
                       reinterpret_cast<LONG_PTR>(&sheets));
    const Picture paper(SHEET_WIDTH, Arrange(&sheets));
    SelectObject(paper.Device(), GetStockObject(DEFAULT_GUI_FONT));
    for (const Sheet &sheet : sheets) Draw(paper.Device(), sheet);
    paper.Write(picture, 1);
}
