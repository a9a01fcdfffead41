#include "designer/accelerators.h"

#include <algorithm>

#include "frame/drop_messages.h"

namespace tessarine {

namespace {

constexpr UINT never_keys[] = {WM_NCHITTEST, WM_MOUSEMOVE, WM_SETCURSOR};

struct MessageRange {
    UINT first;
    UINT last;
};

// What a key has left in the queue behind it, in the order in which it is looked for.
constexpr MessageRange left_behind[] = {
    {WM_CHAR, WM_CHAR},           {WM_INITMENU, WM_INITMENUPOPUP},
    {WM_MENUSELECT, WM_MENUCHAR}, {WM_SYSKEYDOWN, WM_SYSKEYDOWN},
    {WM_SYSKEYUP, WM_SYSKEYUP},   {WM_SYSCOMMAND, WM_SYSCOMMAND},
    {WM_SYSCHAR, WM_SYSCHAR}};

} // namespace

bool TranslateKey(Session *session, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!session->Desk.AccelTable || std::ranges::count(never_keys, message)) return false;
    const HWND window = session->Window; // its command may take it away
    MSG key{window, message, wParam, lParam, 0, {}};
    if (!TranslateAcceleratorA(window, session->Desk.AccelTable, &key)) return false;
    for (const MessageRange &range : left_behind) DropMessage(window, range.first, range.last);
    return true;
}

} // namespace tessarine
