#include "tests/support/host_window.h"

namespace {

constexpr const char *CLASS_NAME = "TestHostWindow";

} // namespace

HostWindow::HostWindow() {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.lpszClassName = CLASS_NAME;
    RegisterClassA(&window_class);
    window_ = CreateWindowExA(0, CLASS_NAME, "", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr,
                              nullptr, window_class.hInstance, nullptr);
    SetWindowLongA(window_, GWLP_USERDATA, reinterpret_cast<LONG>(this));
}

HostWindow::~HostWindow() { DestroyWindow(window_); }

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (auto *host = reinterpret_cast<HostWindow *>(GetWindowLongA(window, GWLP_USERDATA)))
        host->messages_.push_back(message);
    return DefWindowProcA(window, message, wParam, lParam);
}
