#include "designer/drag_rect.h"

#include <gtest/gtest.h>

#include <climits>

#include "designer/handles.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

constexpr RECT limits = {100, 50, 1000, 800};

RECT RectAt(const Edges &edges) { return {edges[0], edges[1], edges[2], edges[3]}; }

} // namespace

TEST(DragRect, MovedRectangleHasItsMiddleUnderThePointer) {
    const struct {
        Edges from;
        POINT pointer;
        Edges to;
    } cases[] = {{{200, 100, 300, 150}, {500, 400}, {450, 375, 550, 425}},
                 {{200, 100, 301, 151}, {500, 400}, {450, 375, 551, 426}},
                 {{200, 100, 300, 150}, {-10, -20}, {-60, -45, 40, 5}},
                 {{200, 100, 200, 100}, {7, 9}, {7, 9, 7, 9}}};
    for (const auto &c : cases)
        EXPECT_EQ(EdgesOf(MovedTo(RectAt(c.from), c.pointer.x, c.pointer.y)), c.to);
}

TEST(DragRect, MovedRectangleKeepsItsSizeAtTheLimits) {
    const struct {
        const char *name;
        Edges place;
        bool free;
        Edges held;
    } cases[] = {{"inside", {200, 100, 300, 150}, false, {200, 100, 300, 150}},
                 {"on the limits", {100, 50, 1000, 800}, false, {100, 50, 1000, 800}},
                 {"left", {90, 100, 190, 150}, false, {100, 100, 200, 150}},
                 {"top", {200, 40, 300, 90}, false, {200, 50, 300, 100}},
                 {"right", {950, 100, 1050, 150}, false, {900, 100, 1000, 150}},
                 {"bottom", {200, 780, 300, 830}, false, {200, 750, 300, 800}},
                 {"free at right and bottom", {950, 780, 1050, 830}, true, {950, 780, 1050, 830}},
                 {"free, but not at left and top", {0, 0, 100, 50}, true, {100, 50, 200, 100}},
                 {"wider than the limits", {100, 60, 1200, 90}, false, {-100, 60, 1000, 90}}};
    for (const auto &c : cases)
        EXPECT_EQ(EdgesOf(HeldMoving(RectAt(c.place), limits, c.free)), c.held) << c.name;
}

TEST(DragRect, EdgesOfTheHandleFollowThePointer) {
    const struct {
        int handle;
        Edges sized;
    } cases[] = {
        {HANDLE_TOP, {200, 120, 300, 150}},         {HANDLE_BOTTOM, {200, 100, 300, 120}},
        {HANDLE_RIGHT, {200, 100, 260, 150}},       {HANDLE_LEFT, {260, 100, 300, 150}},
        {HANDLE_TOP_LEFT, {260, 120, 300, 150}},    {HANDLE_TOP_RIGHT, {200, 120, 260, 150}},
        {HANDLE_BOTTOM_LEFT, {260, 100, 300, 120}}, {HANDLE_BOTTOM_RIGHT, {200, 100, 260, 120}}};
    for (const auto &c : cases) {
        int handle = c.handle;
        EXPECT_EQ(EdgesOf(SizedBy({200, 100, 300, 150}, &handle, 260, 120)), c.sized) << c.handle;
        EXPECT_EQ(handle, c.handle);
    }
}

TEST(DragRect, DragAcrossTheOppositeEdgeGoesOnWithTheOppositeHandle) {
    const struct {
        int handle;
        POINT pointer;
        int then;
        Edges sized;
    } cases[] = {
        {HANDLE_TOP, {0, 180}, HANDLE_BOTTOM, {200, 150, 300, 180}},
        {HANDLE_BOTTOM, {0, 80}, HANDLE_TOP, {200, 80, 300, 100}},
        {HANDLE_RIGHT, {150, 0}, HANDLE_LEFT, {150, 100, 200, 150}},
        {HANDLE_LEFT, {350, 0}, HANDLE_RIGHT, {300, 100, 350, 150}},
        {HANDLE_TOP_LEFT, {350, 120}, HANDLE_TOP_RIGHT, {300, 120, 350, 150}},
        {HANDLE_TOP_LEFT, {250, 180}, HANDLE_BOTTOM_LEFT, {250, 150, 300, 180}},
        {HANDLE_TOP_LEFT, {350, 180}, HANDLE_BOTTOM_RIGHT, {300, 150, 350, 180}},
        {HANDLE_TOP_RIGHT, {150, 120}, HANDLE_TOP_LEFT, {150, 120, 200, 150}},
        {HANDLE_TOP_RIGHT, {250, 180}, HANDLE_BOTTOM_RIGHT, {200, 150, 250, 180}},
        {HANDLE_BOTTOM_LEFT, {350, 120}, HANDLE_BOTTOM_RIGHT, {300, 100, 350, 120}},
        {HANDLE_BOTTOM_LEFT, {250, 80}, HANDLE_TOP_LEFT, {250, 80, 300, 100}},
        {HANDLE_BOTTOM_RIGHT, {150, 120}, HANDLE_BOTTOM_LEFT, {150, 100, 200, 120}},
        {HANDLE_BOTTOM_RIGHT, {250, 80}, HANDLE_TOP_RIGHT, {200, 80, 250, 100}},
        {HANDLE_BOTTOM_RIGHT, {150, 80}, HANDLE_TOP_LEFT, {150, 80, 200, 100}},
    };
    for (const auto &c : cases) {
        int handle = c.handle;
        const RECT sized = SizedBy({200, 100, 300, 150}, &handle, c.pointer.x, c.pointer.y);
        EXPECT_EQ(EdgesOf(sized), c.sized) << c.handle << " to " << c.then;
        EXPECT_EQ(handle, c.then) << c.handle;
    }
}

TEST(DragRect, SizedRectangleIsCutAtTheLimits) {
    const Edges beyond = {0, 0, 2000, 2000};
    EXPECT_EQ(EdgesOf(HeldSizing(RectAt(beyond), limits, false)), EdgesOf(limits));
    EXPECT_EQ(EdgesOf(HeldSizing(RectAt(beyond), limits, true)), (Edges{100, 50, 2000, 2000}));
    EXPECT_EQ(EdgesOf(HeldSizing({200, 100, 300, 150}, limits, false)),
              (Edges{200, 100, 300, 150}));
}

TEST(DragRect, BarTakesNoMoreHeightThanItMay) {
    const RECT bar = {125, 0, 2000, 440};
    const struct {
        const char *name;
        int handle;
        int y;
        int most;
        Edges sized;
    } cases[] = {{"lower edge", HANDLE_BOTTOM, 500, INT_MAX, {125, 0, 2000, 500}},
                 {"upper edge", HANDLE_TOP, 100, INT_MAX, {125, 100, 2000, 440}},
                 {"at the most", HANDLE_BOTTOM, 600, 600, {125, 0, 2000, 600}},
                 {"above the most", HANDLE_BOTTOM, 601, 600, {125, 0, 2000, 599}},
                 {"upper edge above the most", HANDLE_TOP, -200, 600, {125, -200, 2000, 399}},
                 {"lower edge past the upper", HANDLE_BOTTOM, -50, INT_MAX, {125, 0, 2000, 0}},
                 {"upper edge past the lower", HANDLE_TOP, 500, INT_MAX, {125, 440, 2000, 440}},
                 {"no room at all", HANDLE_BOTTOM, 500, -20, {125, 0, 2000, 0}}};
    for (const auto &c : cases)
        EXPECT_EQ(EdgesOf(SizedBar(bar, c.handle, 700, c.y, c.most)), c.sized) << c.name;
}

TEST(DragRect, SideOfABarStopsAtTheOther) {
    const RECT bar = {125, 0, 2000, 440};
    EXPECT_EQ(EdgesOf(SizedBar(bar, HANDLE_LEFT, 3000, 9, INT_MAX)), (Edges{2000, 0, 2000, 440}));
    EXPECT_EQ(EdgesOf(SizedBar(bar, HANDLE_RIGHT, 9, 9, INT_MAX)), (Edges{125, 0, 125, 440}));
    EXPECT_EQ(EdgesOf(SizedBar(bar, HANDLE_TOP_LEFT, 3000, 500, INT_MAX)),
              (Edges{2000, 440, 2000, 440}));
    EXPECT_EQ(EdgesOf(SizedBar(bar, HANDLE_BOTTOM_RIGHT, 9, -9, INT_MAX)), (Edges{125, 0, 125, 0}));
}
