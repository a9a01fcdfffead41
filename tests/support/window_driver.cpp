#include "tests/support/window_driver.h"

namespace {

struct ButtonRow {
    WPARAM mask;
    UINT down, up, double_click;
};
constexpr ButtonRow button_rows[] = {{MK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
                                     {MK_MBUTTON, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK},
                                     {MK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK}};

const ButtonRow &RowOf(MouseButton button) { return button_rows[static_cast<int>(button)]; }

} // namespace

std::string WindowText(HWND window) {
    char text[2048] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

void ServeMessages(const std::function<bool(MSG *)> &taken) {
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
        if (!taken || !taken(&message)) DispatchMessageA(&message);
}

bool PumpUntil(const std::function<bool()> &holds) {
    constexpr DWORD LONGEST = 60'000; // milliseconds
    constexpr DWORD TURN = 10;
    for (const DWORD start = GetTickCount(); GetTickCount() - start < LONGEST;) {
        if (holds()) return true;
        ServeMessages();
        if (holds()) return true;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, TURN, QS_ALLINPUT);
    }
    return false;
}

void HeldKey::Set(BYTE state) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key_] = state;
    SetKeyboardState(keys);
}

POINT FormView::Pixel(int x, int y) const {
    constexpr int UNITS_AN_INCH = 250;
    return {corner.x + MulDiv(x - origin.x, pixels_x, UNITS_AN_INCH),
            corner.y + MulDiv(y - origin.y, pixels_y, UNITS_AN_INCH)};
}

void WindowDriver::Key(int key) const {
    KeyDown(key);
    KeyUp(key);
}

void WindowDriver::Mouse(UINT message, POINT place) const {
    WPARAM keys = buttons_;
    if (GetKeyState(VK_SHIFT) < 0) keys |= MK_SHIFT;
    if (GetKeyState(VK_CONTROL) < 0) keys |= MK_CONTROL;
    Send(message, keys, MAKELPARAM(place.x, place.y));
}

void WindowDriver::Press(POINT place, MouseButton button) {
    buttons_ |= RowOf(button).mask;
    Mouse(RowOf(button).down, place);
}

void WindowDriver::Release(POINT place, MouseButton button) {
    buttons_ &= ~RowOf(button).mask;
    Mouse(RowOf(button).up, place);
}

void WindowDriver::Click(POINT place, MouseButton button) {
    Press(place, button);
    Release(place, button);
}

void WindowDriver::DoubleClick(POINT place, MouseButton button) {
    Click(place, button);
    buttons_ |= RowOf(button).mask;
    Mouse(RowOf(button).double_click, place);
    Release(place, button);
}

void WindowDriver::Move(POINT place) const { Mouse(WM_MOUSEMOVE, place); }

void WindowDriver::Drag(POINT from, POINT to, MouseButton button) {
    Press(from, button);
    Move(to);
    Release(to, button);
}

void WindowDriver::OpenMenu() const {
    Send(WM_INITMENU, reinterpret_cast<WPARAM>(GetMenu(Window())));
}

UINT WindowDriver::MenuState(int number) const {
    return GetMenuState(GetMenu(Window()), static_cast<UINT>(number), MF_BYCOMMAND);
}

std::string WindowDriver::MenuText(int number) const {
    char text[100] = "";
    GetMenuStringA(GetMenu(Window()), static_cast<UINT>(number), text, sizeof text, MF_BYCOMMAND);
    return text;
}

std::pair<int, int> WindowDriver::ScrollRange(int bar) const {
    int low = -1;
    int high = -1;
    GetScrollRange(Window(), bar, &low, &high);
    return {low, high};
}

bool WindowDriver::ScrollShown(int bar) const {
    return GetWindowLongA(Window(), GWL_STYLE) & (bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL);
}
