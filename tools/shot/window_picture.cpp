#include "tools/shot/window_picture.h"

#include "host/export/picture.h"

namespace {

constexpr int WIDTH = 900; // pixels of the window
constexpr int HEIGHT = 680;

} // namespace

void ServeMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void Settle(HWND window) {
    SetWindowPos(window, nullptr, 20, 20, WIDTH, HEIGHT, SWP_NOZORDER);
    ServeMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
    ServeMessages();
}

void TakePicture(HWND window, const std::string &path) {
    RECT place{};
    GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const Picture picture(width, height);
    const HDC source = GetWindowDC(window);
    BitBlt(picture.Device(), 0, 0, width, height, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
    picture.Write(path, 1);
}

void TakeWindow(HWND window, const std::string &path) {
    Settle(window);
    TakePicture(window, path);
}
