// Where dialogs stand.
#include "frame/dialogs.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

// Windows without a class of their own: where they stand is all that counts.
class Window {
public:
    Window(int x, int y, int width, int height, HWND owner = nullptr)
        : window_(CreateWindowExA(0, "STATIC", "", WS_POPUP, x, y, width, height, owner, nullptr,
                                  nullptr, nullptr)) {}
    ~Window() { DestroyWindow(window_); }
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    HWND Get() const { return window_; }
    POINT Corner() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return {place.left, place.top};
    }

private:
    HWND window_;
};

const int screen_width = GetSystemMetrics(SM_CXSCREEN);
const int screen_height = GetSystemMetrics(SM_CYSCREEN);

// Where a dialog of 101 by 51 comes to stand over an owner.
POINT PlaceOver(int x, int y, int width, int height) {
    const Window owner(x, y, width, height);
    const Window dialog(7, 7, 101, 51, owner.Get());
    CentreDialog(dialog.Get());
    return dialog.Corner();
}

} // namespace

TEST(CentredDialog, StandsInTheMiddleOfItsParentWithIntegerHalves) {
    const POINT corner = PlaceOver(100, 50, 301, 201);
    EXPECT_EQ(corner.x, (100 + 401) / 2 - 50);
    EXPECT_EQ(corner.y, (50 + 251) / 2 - 25);
}

TEST(CentredDialog, StandsInTheMiddleOfTheScreenWithoutAParent) {
    const Window dialog(7, 7, 100, 50);
    CentreDialog(dialog.Get());
    EXPECT_EQ(dialog.Corner().x, screen_width / 2 - 50);
    EXPECT_EQ(dialog.Corner().y, screen_height / 2 - 25);
}

TEST(CentredDialog, ParentHalfOffTheScreenLeavesTheDialogOnIt) {
    POINT corner = PlaceOver(-150, -100, 160, 110);
    EXPECT_EQ(corner.x, 0);
    EXPECT_EQ(corner.y, 0);
    corner = PlaceOver(screen_width - 20, screen_height - 20, 160, 110);
    EXPECT_EQ(corner.x, screen_width - 101);
    EXPECT_EQ(corner.y, screen_height - 51);
    corner = PlaceOver(-150, 50, 160, 201); // each axis by itself
    EXPECT_EQ(corner.x, 0);
    EXPECT_EQ(corner.y, (50 + 251) / 2 - 25);
}

TEST(CentredDialog, KeepsItsSize) {
    const Window owner(100, 100, 300, 200);
    const Window dialog(7, 7, 101, 51, owner.Get());
    CentreDialog(dialog.Get());
    RECT place{};
    GetWindowRect(dialog.Get(), &place);
    EXPECT_EQ(place.right - place.left, 101);
    EXPECT_EQ(place.bottom - place.top, 51);
}

TEST(CentredDialog, LargerThanTheScreenBeginsAtItsEdgeUnlessItsParentStandsFarOff) {
    const int wide = screen_width + 100;
    const Window alone(7, 7, wide, 50);
    CentreDialog(alone.Get());
    EXPECT_EQ(alone.Corner().x, 0); // its middle would begin left of the screen
    const Window owner(screen_width, 100, 300, 200);
    const Window dialog(7, 7, wide, 50, owner.Get());
    CentreDialog(dialog.Get());
    EXPECT_EQ(dialog.Corner().x, -100); // and here it would end right of it
    EXPECT_EQ(dialog.Corner().y, 200 - 25);
}
