#include "paint/shapes.h"

#include <gtest/gtest.h>

#include "tests/support/failing_call.h"
#include "tests/support/metafile_records.h"

using namespace tessarine;

namespace {

using Lines = std::vector<std::string>;

constexpr RECT PLACE{60, 120, 160, 180};

// An item of 100 by 60 that is drawn at 60, 120.
class Shapes : public testing::Test {
protected:
    Shapes() {
        item.width = 100;
        item.height = 60;
        item.Background = {BS_HATCHED, 0x00FF00, HS_DIAGCROSS};
    }

    Lines Background() {
        return DrawingBy([this](HDC device) { PaintBackground(device, item, PLACE); });
    }
    Lines Outline() {
        return DrawingBy([this](HDC device) { PaintOutline(device, item, PLACE, next); });
    }
    Lines Line(const RECT &place = PLACE) {
        return DrawingBy([&](HDC device) { PaintLine(device, item, place, place.top, next); });
    }
    static Lines Strokes(const Lines &drawn) { return LinesWith(drawn, {"move", "line"}); }

    ItemRecord item{};
    const HPEN next = static_cast<HPEN>(GetStockObject(WHITE_PEN));
};

struct StrokesRow {
    int number;
    Lines strokes;
};

} // namespace

// ---- backgrounds ----

TEST_F(Shapes, BackgroundFillsTheItem) {
    item.ItemFlags = FLAG_BACKGROUND;
    const Lines drawn = Background();
    ASSERT_GE(drawn.size(), 2U);
    EXPECT_EQ(drawn[0], "select brush 2 00FF00 5");
    EXPECT_EQ(drawn[1], "fill 60,120 100,60 F00021");
    EXPECT_EQ(drawn.back(), "delete brush 2 00FF00 5");
}

TEST_F(Shapes, BackgroundThatIsOffPaintsNothing) { EXPECT_TRUE(Background().empty()); }

TEST_F(Shapes, BrushThatCannotBeMadePaintsNothing) {
    item.ItemFlags = FLAG_BACKGROUND;
    item.Background.Style = 99;
    EXPECT_TRUE(Background().empty());
}

TEST_F(Shapes, PatternBackgroundOfADamagedFormReachesForNoMemory) {
    item.ItemFlags = FLAG_BACKGROUND;
    const FailingCall counts("CreateBrushIndirect", CreateBrushIndirect, nullptr, 1, 0);
    for (const int style : {BS_PATTERN, BS_DIBPATTERN, BS_DIBPATTERNPT, BS_DIBPATTERN8X8})
        for (const int hatch : {-1, 4660, INT16_MAX}) {
            item.Background = {static_cast<uint16_t>(style), 0x00FF00, static_cast<int16_t>(hatch)};
            EXPECT_TRUE(Background().empty()) << style << " " << hatch;
        }
    EXPECT_EQ(counts.Seen(), 0);
}

// ---- outlines ----

TEST_F(Shapes, EachSideIsOneStrokeInAFixedOrder) {
    const StrokesRow rows[] = {
        {SIDE_LEFT, {"move 60,180", "line 60,120"}},
        {SIDE_TOP, {"move 60,120", "line 160,120"}},
        {SIDE_RIGHT, {"move 160,120", "line 160,180"}},
        {SIDE_BOTTOM, {"move 160,180", "line 60,180"}},
        {SIDE_LEFT | SIDE_TOP, {"move 60,180", "line 60,120", "move 60,120", "line 160,120"}},
        {15,
         {"move 60,180", "line 60,120", "move 60,120", "line 160,120", "move 160,120",
          "line 160,180", "move 160,180", "line 60,180"}},
    };
    for (const StrokesRow &row : rows) {
        item.OutlineSides = static_cast<uint16_t>(row.number);
        EXPECT_EQ(Strokes(Outline()), row.strokes) << row.number;
    }
}

TEST_F(Shapes, ItemWithoutSidesTouchesNoPen) { EXPECT_TRUE(Outline().empty()); }

TEST_F(Shapes, OutlineHasItsOwnPenAndTheNextFollows) {
    item.OutlineSides = SIDE_TOP;
    item.OutlineStyle = PS_DASH;
    item.OutlineWidth = 3;
    item.OutlineColor = 0x0000FF;
    EXPECT_EQ(Outline(), (Lines{"select pen 1 3 0000FF", "move 60,120", "line 160,120",
                                "select pen 0 0 FFFFFF", "delete pen 1 3 0000FF"}));
}

// ---- lines ----

TEST_F(Shapes, LineRunsByItsAngle) {
    const StrokesRow rows[] = {
        {0, {"move 60,150", "line 160,150"}},  {1, {"move 110,120", "line 110,180"}},
        {2, {"move 60,120", "line 160,180"}},  {3, {"move 60,180", "line 160,120"}},
        {77, {"move 60,180", "line 160,120"}}, {-1, {"move 60,180", "line 160,120"}},
    };
    for (const StrokesRow &row : rows) {
        item.LineAngle = static_cast<int16_t>(row.number);
        EXPECT_EQ(Strokes(Line()), row.strokes) << row.number;
    }
}

TEST_F(Shapes, BackDiagonalEndsAtTheTopThatItIsTold) {
    item.LineAngle = 3;
    const Lines drawn = DrawingBy([this](HDC device) { PaintLine(device, item, PLACE, 90, next); });
    EXPECT_EQ(Strokes(drawn), (Lines{"move 60,180", "line 160,90"}));
}

TEST_F(Shapes, HalvesOfALineTruncateTowardsZero) {
    item.width = 101;
    item.height = -61;
    const RECT place{60, 120, 161, 59};
    EXPECT_EQ(Strokes(Line(place)), (Lines{"move 60,90", "line 161,90"}));
    item.LineAngle = 1;
    EXPECT_EQ(Strokes(Line(place)), (Lines{"move 110,120", "line 110,59"}));
}

TEST_F(Shapes, DiagonalOfNoHeightIsHorizontal) {
    item.height = 0;
    item.LineAngle = 2;
    EXPECT_EQ(Strokes(Line({60, 120, 160, 120})), (Lines{"move 60,120", "line 160,120"}));
}

TEST_F(Shapes, LineHasItsOwnPenAndTheNextFollows) {
    item.LineWidth = 4;
    item.LineColor = 0xFF0000;
    EXPECT_EQ(Line(), (Lines{"select pen 0 4 FF0000", "move 60,150", "line 160,150",
                             "select pen 0 0 FFFFFF", "delete pen 0 4 FF0000"}));
}

TEST_F(Shapes, PenThatCannotBeMadeTakesTheShapeAway) {
    item.OutlineSides = 15;
    const FailingCall none("CreatePen", CreatePen, nullptr, 1, EVERY_CALL);
    EXPECT_TRUE(Outline().empty());
    EXPECT_TRUE(Line().empty());
    EXPECT_EQ(none.Seen(), 2);
}
