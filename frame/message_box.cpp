#include "frame/message_box.h"

#include "frame/fatal_error.h"

namespace tessarine {

int ShowBox(HWND owner, const char *text, const char *title, UINT flags) {
    return MessageBoxA(owner, text, title ? title : "", flags);
}

int ShowSessionBox(const Session *session, const char *text, const char *title, UINT flags) {
    const int button = ShowBox(session->Window, text, title, flags);
    RaisePending(session);
    return button;
}

} // namespace tessarine
