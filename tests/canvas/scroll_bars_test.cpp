#include "canvas/scroll_bars.h"

#include <gtest/gtest.h>

#include "tests/support/failing_call.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

class ScrollBars : public testing::Test {
protected:
    ScrollBars() {
        session->Window = window;
        session->view.HorzScroll = session->view.VertScroll = 1;
        ShowScrollBars(session);
    }
    ~ScrollBars() override { DestroyWindow(window); }

    int Shown(int bar) const { return GetScrollPos(window, bar); }

    const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_HSCROLL | WS_VSCROLL, 0, 0,
                                        90, 90, nullptr, nullptr, nullptr, nullptr);
    BareSession session;
};

struct ShareRow {
    int64_t place, extent;
    int share;
};

} // namespace

TEST_F(ScrollBars, RunFrom0To100) {
    for (const int bar : {SB_HORZ, SB_VERT}) {
        int least = -1;
        int most = -1;
        GetScrollRange(window, bar, &least, &most);
        EXPECT_EQ(least, 0);
        EXPECT_EQ(most, 100);
    }
}

TEST_F(ScrollBars, StandAtThePlacesShareOfTheExtent) {
    const ShareRow rows[] = {
        {50, 200, 25}, {199, 200, 99}, {200, 200, 100}, {500, 200, 100},
        {-7, 200, 0},  {50, 0, 0},     {50, -1, 0},     {int64_t{1} << 40, int64_t{1} << 41, 50}};
    for (const int bar : {SB_HORZ, SB_VERT})
        for (const ShareRow &row : rows) {
            MoveScrollBar(session, bar, row.place, row.extent);
            EXPECT_EQ(Shown(bar), row.share) << row.place << " of " << row.extent;
        }
}

TEST_F(ScrollBars, MoveEachByItself) {
    MoveScrollBar(session, SB_HORZ, 1, 4);
    MoveScrollBar(session, SB_VERT, 3, 4);
    EXPECT_EQ(Shown(SB_HORZ), 25);
    EXPECT_EQ(Shown(SB_VERT), 75);
}

TEST_F(ScrollBars, BarThatStaysIsNotSetAgain) {
    MoveScrollBar(session, SB_VERT, 1, 4);
    const FailingCall set("SetScrollPos", SetScrollPos, 0, 1, 0);
    MoveScrollBar(session, SB_VERT, 2, 8);
    EXPECT_EQ(set.Seen(), 0);
    MoveScrollBar(session, SB_VERT, 2, 4);
    EXPECT_EQ(set.Seen(), 1);
}

TEST_F(ScrollBars, ThumbStandsForItsShareOfTheExtent) {
    EXPECT_EQ(PlaceOfThumb(0, 750), 0);
    EXPECT_EQ(PlaceOfThumb(37, 750), 277);
    EXPECT_EQ(PlaceOfThumb(100, 750), 750);
}
