#include "frame/drop_messages.h"

namespace tessarine {

bool DropMessage(HWND window, UINT first, UINT last) {
    MSG message;
    if (!PeekMessageA(&message, window, first, last, PM_REMOVE | PM_NOYIELD)) return false;
    if (message.message != WM_QUIT) return true;
    PostQuitMessage(static_cast<int>(message.wParam)); // for the host's own loop
    return false;
}

void DropMessages(HWND window, UINT first, UINT last) {
    while (DropMessage(window, first, last)) {
    }
}

} // namespace tessarine
