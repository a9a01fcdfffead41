#include "host/run/preview_keys.h"

#include <commands.h>

#include <cstdlib>

namespace {

constexpr struct {
    WPARAM key;
    bool control;
    UINT command;
    UINT menu; // 0, or the menu entry that must be enabled
} keys[] = {
    {VK_PRIOR, false, COMMAND_PAGE_UP, 0},
    {VK_NEXT, false, COMMAND_PAGE_DOWN, 0},
    {VK_UP, false, COMMAND_LINE_UP, 0},
    {VK_DOWN, false, COMMAND_LINE_DOWN, 0},
    {VK_LEFT, false, COMMAND_LEFT, 0},
    {VK_RIGHT, false, COMMAND_RIGHT, 0},
    {VK_SPACE, false, COMMAND_PAGE_DOWN, 0},
    {VK_BACK, false, COMMAND_PAGE_UP, 0},
    {VK_ESCAPE, false, COMMAND_EXIT, COMMAND_EXIT},
    {'G', true, COMMAND_JUMP, COMMAND_JUMP},
    {'P', true, COMMAND_PRINT, COMMAND_PRINT},
    {'S', true, COMMAND_SAVE, COMMAND_SAVE},
    {'Z', true, COMMAND_FIT, COMMAND_FIT},
};

constexpr int LINES_A_NOTCH = 3;

bool Enabled(HWND window, UINT entry) {
    return entry == 0 ||
           !(GetMenuState(GetMenu(window), entry, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED));
}

bool ServeKey(HWND window, WPARAM key) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    for (const auto &row : keys) {
        if (row.key != key || row.control != control) continue;
        if (Enabled(window, row.menu)) PostMessageA(window, WM_COMMAND, row.command, 0);
        return true;
    }
    return false;
}

void ServeWheel(HWND window, int delta) {
    const WPARAM command = delta > 0 ? COMMAND_LINE_UP : COMMAND_LINE_DOWN;
    const int lines = std::abs(delta) * LINES_A_NOTCH / WHEEL_DELTA;
    for (int line = 0; line < lines; ++line) PostMessageA(window, WM_COMMAND, command, 0);
}

bool OfPreview(HWND window) {
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    return !lstrcmpA(name, "RepClass32");
}

LRESULT CALLBACK Hook(int code, WPARAM removed, LPARAM lParam) {
    auto *message = reinterpret_cast<MSG *>(lParam);
    if (code == HC_ACTION && removed == PM_REMOVE && OfPreview(message->hwnd)) {
        if (message->message == WM_KEYDOWN && ServeKey(message->hwnd, message->wParam))
            message->message = WM_NULL;
        if (message->message == WM_MOUSEWHEEL)
            ServeWheel(message->hwnd, GET_WHEEL_DELTA_WPARAM(message->wParam));
    }
    return CallNextHookEx(nullptr, code, removed, lParam);
}

} // namespace

PreviewKeys::PreviewKeys()
    : hook_(SetWindowsHookExA(WH_GETMESSAGE, Hook, nullptr, GetCurrentThreadId())) {}

PreviewKeys::~PreviewKeys() { UnhookWindowsHookEx(hook_); }
