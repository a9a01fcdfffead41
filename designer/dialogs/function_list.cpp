#include "designer/dialogs/function_list.h"

#include <cstring>

#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int MARGIN = 2;          // pixels between a row's edge and its text
constexpr int SECOND_COLUMN = 120; // pixels behind the first
constexpr int LONGEST_ROW = 200;

struct RowColors {
    int ground;
    int text;
};

constexpr RowColors selected_colors{COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};
constexpr RowColors plain_colors{COLOR_MENU, COLOR_MENUTEXT};

RECT Inflated(RECT rectangle, int by) {
    InflateRect(&rectangle, by, by);
    return rectangle;
}

void DrawColumns(const DRAWITEMSTRUCT &row, const RECT &place, COLORREF color) {
    char text[LONGEST_ROW] = "";
    const LRESULT length = SendMessageA(row.hwndItem, CB_GETLBTEXTLEN, row.itemID, 0);
    if (length <= 0 || length >= LONGEST_ROW) return;
    SendMessageA(row.hwndItem, CB_GETLBTEXT, row.itemID, reinterpret_cast<LPARAM>(text));
    SetBkMode(row.hDC, TRANSPARENT);
    SetTextColor(row.hDC, color);
    const INT stop = place.left + SECOND_COLUMN;
    TabbedTextOutA(row.hDC, place.left, place.top, text, static_cast<int>(length), 1, &stop,
                   place.left);
}

} // namespace

bool FunctionCall(const Session *session, const char *text, char (&call)[FUNCTION_CALL_SIZE]) {
    for (const OperatorRow &row : session->form.OperatorTable) {
        if (!row.Function) continue;
        CopyText(row.Text, call, sizeof call);
        std::strcat(call, "(");
        if (!std::strncmp(text, call, std::strlen(call))) return true;
    }
    return false;
}

void DrawFunctionRow(const DRAWITEMSTRUCT &row) {
    const RECT place = Inflated(row.rcItem, -MARGIN);
    const bool exists = row.itemID != UINT_MAX;
    if (exists) {
        const RowColors &colors = row.itemState & ODS_SELECTED ? selected_colors : plain_colors;
        const RECT ground = Inflated(place, 2 * MARGIN);
        FillRect(row.hDC, &ground, GetSysColorBrush(colors.ground));
        DrawColumns(row, place, GetSysColor(colors.text));
    }
    if (!exists || row.itemState & ODS_FOCUS) {
        const RECT outline = Inflated(place, MARGIN);
        DrawFocusRect(row.hDC, &outline);
    }
}

} // namespace tessarine
