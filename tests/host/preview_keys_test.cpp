// Keys and wheel turns for a preview become its commands.
#include <gtest/gtest.h>

#include <vector>

#include "commands.h"
#include "host/run/preview_keys.h"
#include "output/preview_window.h"
#include "tests/support/window_driver.h"

namespace {

std::vector<WPARAM> commands;

LRESULT CALLBACK Log(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) commands.push_back(wParam);
    return DefWindowProcA(window, message, wParam, lParam);
}

class PreviewKeysOn : public testing::Test, public WindowDriver {
protected:
    PreviewKeysOn() {
        WNDCLASSA window_class{};
        window_class.lpfnWndProc = Log;
        window_class.lpszClassName = "RepClass32";
        RegisterClassA(&window_class);
        menu = CreateMenu();
        AppendMenuA(menu, MF_STRING | MF_GRAYED, COMMAND_JUMP, "&Jump");
        AppendMenuA(menu, MF_STRING, COMMAND_EXIT, "&Exit");
        window = CreateWindowExA(0, "RepClass32", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr,
                                 menu, nullptr, nullptr);
        commands.clear();
    }
    ~PreviewKeysOn() override {
        DestroyWindow(window);
        UnregisterClassA("RepClass32", nullptr);
    }

    HWND Window() const override { return window; }
    std::vector<WPARAM> After(UINT message, WPARAM wParam) {
        commands.clear();
        Post(message, wParam);
        ServeMessages();
        return commands;
    }

    const PreviewKeys keys;
    HMENU menu = nullptr;
    HWND window = nullptr;
};

using Commands = std::vector<WPARAM>;

} // namespace

TEST_F(PreviewKeysOn, PageAndArrowKeysScroll) {
    EXPECT_EQ(After(WM_KEYDOWN, VK_PRIOR), Commands{COMMAND_PAGE_UP});
    EXPECT_EQ(After(WM_KEYDOWN, VK_NEXT), Commands{COMMAND_PAGE_DOWN});
    EXPECT_EQ(After(WM_KEYDOWN, VK_UP), Commands{COMMAND_LINE_UP});
    EXPECT_EQ(After(WM_KEYDOWN, VK_DOWN), Commands{COMMAND_LINE_DOWN});
    EXPECT_EQ(After(WM_KEYDOWN, VK_LEFT), Commands{COMMAND_LEFT});
    EXPECT_EQ(After(WM_KEYDOWN, VK_RIGHT), Commands{COMMAND_RIGHT});
}

TEST_F(PreviewKeysOn, WheelNotchScrollsThreeLines) {
    EXPECT_EQ(After(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA)),
              (Commands{COMMAND_LINE_UP, COMMAND_LINE_UP, COMMAND_LINE_UP}));
    EXPECT_EQ(After(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA)),
              (Commands{COMMAND_LINE_DOWN, COMMAND_LINE_DOWN, COMMAND_LINE_DOWN}));
}

TEST_F(PreviewKeysOn, KeysOfGrayEntriesDoNothing) {
    {
        const HeldKey control(VK_CONTROL);
        EXPECT_EQ(After(WM_KEYDOWN, 'G'), Commands{});
        EnableMenuItem(menu, COMMAND_JUMP, MF_ENABLED);
        EXPECT_EQ(After(WM_KEYDOWN, 'G'), Commands{COMMAND_JUMP});
    }
    EXPECT_EQ(After(WM_KEYDOWN, 'G'), Commands{});
    EXPECT_EQ(After(WM_KEYDOWN, VK_ESCAPE), Commands{COMMAND_EXIT});
}
