#include "tests/support/walk_answers.h"

#include <cstring>
#include <random>

#include "tests/support/window_driver.h"

namespace {

std::mt19937 choices;

constexpr const char *texts[] = {"Text",   "1",          "12",        "AMOUNT",
                                 "2",      "AMOUNT*2",   "A LABEL",   "AMOUNT > 5",
                                 "",       "TOTAL",      "300",       "Two\r\nlines",
                                 "AMOUNT", "AMOUNT = 1", "CALC->TAX", ".TOTAL-OF. AMOUNT"};

bool IsOfClass(HWND control, const char *name) {
    char own[32] = "";
    GetClassNameA(control, own, sizeof own);
    return !lstrcmpiA(own, name);
}

void FillControl(HWND dialog, HWND control) {
    const auto tell = [&](int code) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                     reinterpret_cast<LPARAM>(control));
    };
    if (IsOfClass(control, "Edit")) {
        if (choices() % 3)
            SendMessageA(control, WM_SETTEXT, 0,
                         reinterpret_cast<LPARAM>(texts[choices() % std::size(texts)]));
    } else if (IsOfClass(control, "ListBox")) {
        const LRESULT rows = SendMessageA(control, LB_GETCOUNT, 0, 0);
        if (rows > 0)
            SendMessageA(control, LB_SETCURSEL, choices() % static_cast<uint32_t>(rows), 0);
        tell(LBN_SELCHANGE);
    } else if (IsOfClass(control, "Button")) {
        const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
        const bool box = kind == BS_AUTOCHECKBOX || kind == BS_AUTORADIOBUTTON ||
                         kind == BS_CHECKBOX || kind == BS_RADIOBUTTON;
        if (box && IsWindowEnabled(control) && choices() % 3 == 0)
            SendMessageA(control, BM_CLICK, 0, 0);
    }
}

bool IsCommonDialog(HWND dialog) {
    const std::string title = WindowText(dialog);
    constexpr const char *titles[] = {"Font", "Color", "Print Setup", "Bitmap File Name Selection"};
    for (const char *known : titles)
        if (title == known) return true;
    return GetDlgItem(dialog, IDOK) == nullptr;
}

} // namespace

void SetWalkAnswer(uint32_t answer) { choices.seed(answer); }

int WalkAnswer(HWND dialog) {
    if (GetDlgItem(dialog, 0xFFFF)) { // a message box
        const bool yes = GetDlgItem(dialog, IDYES) != nullptr && choices() % 2;
        if (yes) return IDYES;
        return GetDlgItem(dialog, IDNO) ? IDNO : IDOK;
    }
    if (IsCommonDialog(dialog)) return IDCANCEL;
    for (HWND control = GetWindow(dialog, GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT))
        FillControl(dialog, control);
    if (choices() % 8 == 0) return IDCANCEL;
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    return IDCANCEL;
}
