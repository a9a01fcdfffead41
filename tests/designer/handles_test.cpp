#include "designer/handles.h"

#include <gtest/gtest.h>

#include "designer/designer_state.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

ItemRecord ItemAt(int type, int x, int y, int width, int height) {
    ItemRecord item{};
    item.ItemType = static_cast<uint16_t>(type);
    item.x = static_cast<int16_t>(x);
    item.y = static_cast<int16_t>(y);
    item.width = static_cast<int16_t>(width);
    item.height = static_cast<int16_t>(height);
    return item;
}

constexpr int CAPTION = 40;

class Handles : public testing::Test {
protected:
    void Lay(int type, bool label_form = false) {
        PlaceHandles(ItemAt(type, 100, 200, 301, 51), CAPTION, label_form, handles);
    }
    int Shown() const {
        int shown = 0;
        for (const RECT &handle : handles) shown += HandleShown(handle);
        return shown;
    }

    RECT handles[HANDLES] = {};
};

} // namespace

TEST_F(Handles, EightSquaresLieAroundAnItem) {
    Lay(ITEM_LABEL);
    const POINT corners[HANDLES] = {{242, 192}, {242, 243}, {393, 217}, {92, 217},
                                    {92, 192},  {393, 192}, {92, 243},  {393, 243}};
    for (int i = 0; i < HANDLES; ++i)
        EXPECT_EQ(EdgesOf(handles[i]),
                  (Edges{corners[i].x, corners[i].y, corners[i].x + 16, corners[i].y + 16}))
            << i;
    EXPECT_EQ(Shown(), HANDLES);
}

TEST_F(Handles, MiddleOfASmallItemTruncatesTowardsZero) {
    PlaceHandles(ItemAt(ITEM_LABEL, 100, 200, 1, 1), CAPTION, false, handles);
    EXPECT_EQ(handles[HANDLE_TOP].left, 93);
    EXPECT_EQ(handles[HANDLE_LEFT].top, 193);
}

TEST_F(Handles, BarHasOneOnItsCaptionsLowerEdgeAndOneOnItsOwn) {
    Lay(ITEM_BAR);
    EXPECT_EQ(Shown(), 2);
    EXPECT_EQ(handles[HANDLE_TOP].top, 192 + CAPTION);
    EXPECT_EQ(handles[HANDLE_TOP].bottom, 208 + CAPTION);
    EXPECT_EQ(handles[HANDLE_BOTTOM].top, 243);
    for (int i = HANDLE_RIGHT; i < HANDLES; ++i) EXPECT_FALSE(HandleShown(handles[i])) << i;
}

TEST_F(Handles, BarOfALabelFormHasNone) {
    Lay(ITEM_BAR, true);
    EXPECT_EQ(Shown(), 0);
    Lay(ITEM_LABEL, true);
    EXPECT_EQ(Shown(), HANDLES);
}

TEST_F(Handles, PlaceIsHeldFromLeftAndTopToBeforeRightAndBottom) {
    Lay(ITEM_LABEL);
    const struct {
        int x, y, handle;
    } cases[] = {
        {92, 192, HANDLE_TOP_LEFT}, {107, 207, HANDLE_TOP_LEFT}, {108, 200, NO_HANDLE},
        {100, 208, NO_HANDLE},      {91, 192, NO_HANDLE},        {92, 191, NO_HANDLE},
        {250, 225, NO_HANDLE},      {242, 192, HANDLE_TOP},      {408, 258, HANDLE_BOTTOM_RIGHT},
        {409, 258, NO_HANDLE}};
    for (const auto &c : cases)
        EXPECT_EQ(HandleAt(handles, c.x, c.y), c.handle) << c.x << " " << c.y;
}

TEST_F(Handles, FirstOfSeveralHoldsThePlace) {
    PlaceHandles(ItemAt(ITEM_LABEL, 100, 200, 0, 0), CAPTION, false, handles);
    EXPECT_EQ(HandleAt(handles, 100, 200), HANDLE_TOP);
}

TEST_F(Handles, OneThatIsSwitchedOffHoldsNothing) {
    Lay(ITEM_BAR);
    EXPECT_EQ(HandleAt(handles, 400, 220), NO_HANDLE);
    EXPECT_EQ(HandleAt(handles, 92, 217), NO_HANDLE);
}

TEST_F(Handles, SidesNameTheHandle) {
    for (int i = 0; i < HANDLES; ++i) EXPECT_EQ(HandleOf(SidesOf(i)), i);
    EXPECT_EQ(HandleOf({0, 0}), NO_HANDLE);
}

TEST_F(Handles, EachHasTheCursorOfItsDirection) {
    BareSession session;
    DeviceState &device = session->device;
    HCURSOR *const cursors[] = {&device.SizeNSCursor, &device.SizeWECursor, &device.SizeNESWCursor,
                                &device.SizeNWSECursor};
    const LPCSTR names[] = {IDC_SIZENS, IDC_SIZEWE, IDC_SIZENESW, IDC_SIZENWSE};
    for (int i = 0; i < 4; ++i) *cursors[i] = LoadCursorA(nullptr, names[i]);
    const LPCSTR expected[HANDLES] = {IDC_SIZENS,   IDC_SIZENS,   IDC_SIZEWE,   IDC_SIZEWE,
                                      IDC_SIZENWSE, IDC_SIZENESW, IDC_SIZENESW, IDC_SIZENWSE};
    for (int i = 0; i < HANDLES; ++i)
        EXPECT_EQ(HandleCursor(session, i), LoadCursorA(nullptr, expected[i])) << i;
}
