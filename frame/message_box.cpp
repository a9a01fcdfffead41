#include "frame/message_box.h"

namespace tessarine {

int ShowBox(HWND owner, const char *text, const char *title, UINT flags) {
    return MessageBoxA(owner, text, title ? title : "", flags);
}

} // namespace tessarine
