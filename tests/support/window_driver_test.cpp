#include "tests/support/window_driver.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr UINT FIRST = 11; // commands of the menu
constexpr UINT SECOND = 12;

struct Heard {
    UINT message;
    WPARAM wParam;
    int x, y;

    bool operator==(const Heard &other) const = default;
};
std::vector<Heard> heard;
bool menu_opened;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
        heard.push_back({message, wParam, static_cast<short>(LOWORD(lParam)),
                         static_cast<short>(HIWORD(lParam))});
    else if (message == WM_COMMAND || message == WM_KEYDOWN || message == WM_KEYUP)
        heard.push_back({message, wParam, 0, 0});
    else if (message == WM_VSCROLL)
        SetScrollPos(window, SB_VERT, HIWORD(wParam), FALSE);
    else if (message == WM_INITMENU)
        menu_opened = wParam == reinterpret_cast<WPARAM>(GetMenu(window));
    return DefWindowProcA(window, message, wParam, lParam);
}

// A window of a class that takes double clicks, with a menu and a vertical scroll bar.
class DriverOn : public testing::Test, public WindowDriver {
protected:
    DriverOn() {
        WNDCLASSA window_class{};
        window_class.style = CS_DBLCLKS;
        window_class.lpfnWndProc = Procedure;
        window_class.lpszClassName = "TestDrivenWindow";
        RegisterClassA(&window_class);
        menu = CreateMenu();
        AppendMenuA(menu, MF_STRING | MF_GRAYED, FIRST, "&First");
        AppendMenuA(menu, MF_STRING | MF_CHECKED, SECOND, "&Second");
        window = CreateWindowExA(0, window_class.lpszClassName, "driven",
                                 WS_OVERLAPPEDWINDOW | WS_VSCROLL, 0, 0, 300, 300, nullptr, menu,
                                 nullptr, nullptr);
        heard.clear();
        menu_opened = false;
    }
    ~DriverOn() override { DestroyWindow(window); }
    HWND Window() const override { return window; }

    HMENU menu = nullptr;
    HWND window = nullptr;
};

using Messages = std::vector<Heard>;

} // namespace

TEST_F(DriverOn, CommandsAndKeysComeAtOnceAndPostedOnesWithTheirTurn) {
    Command(SECOND);
    Key(VK_DELETE);
    const Messages sent{
        {WM_COMMAND, SECOND, 0, 0}, {WM_KEYDOWN, VK_DELETE, 0, 0}, {WM_KEYUP, VK_DELETE, 0, 0}};
    EXPECT_EQ(heard, sent);
    PostCommand(FIRST);
    EXPECT_EQ(heard.size(), 3u);
    EXPECT_TRUE(PumpUntil([] { return heard.size() == 4; }));
    EXPECT_EQ(heard.back(), (Heard{WM_COMMAND, FIRST, 0, 0}));
}

TEST_F(DriverOn, MessagesThatARoutineTakesAreNotHandedOut) {
    PostCommand(FIRST);
    PostCommand(SECOND);
    ServeMessages([](MSG *message) { return message->wParam == FIRST; });
    EXPECT_EQ(heard, (Messages{{WM_COMMAND, SECOND, 0, 0}}));
}

TEST_F(DriverOn, DragHoldsItsButtonUntilItIsReleased) {
    Drag({10, 20}, {30, -5}, MouseButton::MIDDLE);
    Move({31, -6});
    EXPECT_EQ(heard, (Messages{{WM_MBUTTONDOWN, MK_MBUTTON, 10, 20},
                               {WM_MOUSEMOVE, MK_MBUTTON, 30, -5},
                               {WM_MBUTTONUP, 0, 30, -5},
                               {WM_MOUSEMOVE, 0, 31, -6}}));
}

TEST_F(DriverOn, ButtonThatIsLostIsGoneFromTheNextMove) {
    Press({1, 2});
    LoseButtons();
    Move({3, 4});
    EXPECT_EQ(heard, (Messages{{WM_LBUTTONDOWN, MK_LBUTTON, 1, 2}, {WM_MOUSEMOVE, 0, 3, 4}}));
}

TEST_F(DriverOn, DoubleClickComesBehindAWholeClick) {
    DoubleClick({5, 6});
    EXPECT_EQ(heard, (Messages{{WM_LBUTTONDOWN, MK_LBUTTON, 5, 6},
                               {WM_LBUTTONUP, 0, 5, 6},
                               {WM_LBUTTONDBLCLK, MK_LBUTTON, 5, 6},
                               {WM_LBUTTONUP, 0, 5, 6}}));
}

TEST_F(DriverOn, HeldShiftIsInTheMessageAndInTheKeyState) {
    {
        const HeldKey shift(VK_SHIFT);
        EXPECT_LT(GetKeyState(VK_SHIFT), 0);
        Click({7, 8}, MouseButton::RIGHT);
    }
    EXPECT_GE(GetKeyState(VK_SHIFT), 0);
    EXPECT_EQ(heard, (Messages{{WM_RBUTTONDOWN, MK_RBUTTON | MK_SHIFT, 7, 8},
                               {WM_RBUTTONUP, MK_SHIFT, 7, 8}}));
}

TEST_F(DriverOn, FormUnitsAreThePixelsOfTheirView) {
    const FormView view{{20, 30}, {500, 250}, 96, 192};
    Click(view.Pixel(500, 250));
    Click(view.Pixel(750, 500)); // an inch on
    Click(view.Pixel(375, 0));   // half an inch to the left, one up: out of the window
    EXPECT_EQ(heard[0], (Heard{WM_LBUTTONDOWN, MK_LBUTTON, 20, 30}));
    EXPECT_EQ(heard[2], (Heard{WM_LBUTTONDOWN, MK_LBUTTON, 116, 222}));
    EXPECT_EQ(heard[4], (Heard{WM_LBUTTONDOWN, MK_LBUTTON, -28, -162}));
}

TEST_F(DriverOn, MenuTellsItsEntriesByNumber) {
    OpenMenu();
    EXPECT_TRUE(menu_opened);
    EXPECT_FALSE(MenuEnabled(FIRST));
    EXPECT_FALSE(MenuChecked(FIRST));
    EXPECT_EQ(MenuText(FIRST), "&First");
    EXPECT_TRUE(MenuEnabled(SECOND));
    EXPECT_TRUE(MenuChecked(SECOND));
    EXPECT_EQ(MenuText(99), "");
    EXPECT_FALSE(MenuEnabled(99)); // there is none
}

TEST_F(DriverOn, ScrollBarsTellPlaceRangeAndWhetherTheyShow) {
    SetScrollRange(window, SB_VERT, 0, 100, FALSE);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 37);
    EXPECT_EQ(ScrollPosition(SB_VERT), 37);
    EXPECT_EQ(ScrollRange(SB_VERT), (std::pair{0, 100}));
    EXPECT_TRUE(ScrollShown(SB_VERT));
    EXPECT_FALSE(ScrollShown(SB_HORZ));
    ShowScrollBar(window, SB_VERT, FALSE);
    EXPECT_FALSE(ScrollShown(SB_VERT));
}

TEST_F(DriverOn, WindowOutsideAFixtureIsDrivenAlike) {
    DrivenWindow(window).Command(SECOND);
    EXPECT_EQ(heard.size(), 1u);
    EXPECT_EQ(WindowText(window), "driven");
}
