#include "paint/strokes.h"

#include <gtest/gtest.h>

#include "tests/support/metafile_records.h"

using namespace tessarine;

namespace {

using Lines = std::vector<std::string>;

HPEN White() { return static_cast<HPEN>(GetStockObject(WHITE_PEN)); }

} // namespace

TEST(Strokes, StrokeGoesFromItsStartToItsEnd) {
    EXPECT_EQ(DrawingBy([](HDC device) {
                  DrawStroke(device, {1, 2}, {30, 40});
              }),
              (Lines{"move 1,2", "line 30,40"}));
}

TEST(Strokes, FrameGoesClockwiseFromTheTopLeft) {
    EXPECT_EQ(DrawingBy([](HDC device) {
                  DrawFrame(device, {10, 20, 110, 70});
              }),
              (Lines{"move 10,20", "line 110,20", "line 110,70", "line 10,70", "line 10,20"}));
}

TEST(Strokes, PenIsFollowedByTheNextAndDeleted) {
    EXPECT_EQ(DrawingBy([](HDC device) {
                  const StrokePen pen(device, CreatePen(PS_DASH, 3, 0x0000FF), White());
                  EXPECT_TRUE(pen);
                  LineTo(device, 5, 6);
              }),
              (Lines{"select pen 1 3 0000FF", "line 5,6", "select pen 0 0 FFFFFF",
                     "delete pen 1 3 0000FF"}));
}

TEST(Strokes, PenThatCouldNotBeMadeTouchesNothing) {
    EXPECT_TRUE(DrawingBy([](HDC device) {
                    const StrokePen pen(device, nullptr, White());
                    EXPECT_FALSE(pen);
                }).empty());
}
