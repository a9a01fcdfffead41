#include "frame/drop_messages.h"

#include <gtest/gtest.h>

#include "tests/support/host_window.h"

using tessarine::DropMessages;

namespace {

bool Waits(HWND window, UINT message) {
    MSG found;
    return PeekMessageA(&found, window, message, message, PM_NOREMOVE);
}

} // namespace

TEST(DropMessages, ThoseOfTheRangeGoAndOthersStay) {
    const HostWindow host;
    const HostWindow other;
    PostMessageA(host.Get(), WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(host.Get(), WM_KEYUP, VK_DOWN, 0);
    PostMessageA(host.Get(), WM_APP, 0, 0);
    PostMessageA(other.Get(), WM_KEYDOWN, VK_DOWN, 0);
    DropMessages(host.Get(), WM_KEYDOWN, WM_KEYLAST);
    EXPECT_FALSE(Waits(host.Get(), WM_KEYDOWN));
    EXPECT_FALSE(Waits(host.Get(), WM_KEYUP));
    EXPECT_TRUE(Waits(host.Get(), WM_APP));
    EXPECT_TRUE(Waits(other.Get(), WM_KEYDOWN));
}

TEST(DropMessages, EndOfTheProgramReachesTheHostsLoop) {
    const HostWindow host;
    PostQuitMessage(7);
    DropMessages(host.Get(), WM_KEYDOWN, WM_KEYLAST);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}
