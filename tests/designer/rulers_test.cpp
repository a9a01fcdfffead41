#include "designer/rulers.h"

#include <cmath>
#include <limits>

#include "tests/support/design_paint.h"
#include "tests/support/failing_call.h"

using namespace tessarine;

namespace {

using Lines = std::vector<std::string>;

class Rulers : public DesignPaint {
protected:
    Rulers() {
        session->view.RulerBandHeight = BandHeight(session);
        session->form.Header.LeftMargin = 0.25F;
        session->printer.ReportWidth = 300;
    }

    Lines Top() {
        return DrawingBy([this](HDC device) { PaintTopRuler(session, device); });
    }
    Lines Side(BarSide side) {
        return DrawingBy([&](HDC device) { PaintSideRuler(session, device, bar, side); });
    }
    // What is drawn behind the panel, whose bevel is six strokes.
    static Lines Scale(const Lines &drawn) {
        const Lines strokes = LinesWith(drawn, {"move", "line", "text"});
        return {strokes.begin() + 6, strokes.end()};
    }
    // The x at which the top ruler's strokes of a length begin.
    std::vector<int> Ticks(int length) {
        std::vector<int> found;
        const Lines strokes = Strokes(Top());
        for (size_t line = 8; line + 1 < strokes.size(); line += 2) {
            const int x = std::stoi(strokes[line].substr(5));
            const std::string end = "line " + std::to_string(x) + "," + std::to_string(length - 30);
            if (strokes[line + 1] == end) found.push_back(x);
        }
        return found;
    }
    void UseCentimetres() { session->form.Header.RulerFlags = RULER_CENTIMETRES | RULER_SHOWN; }
    void HideRulers() {
        session->form.Header.RulerFlags = RULER_INCHES;
        session->view.RulerBandHeight = BandHeight(session);
    }

    ItemRecord bar = [] {
        ItemRecord item{};
        item.x = 62;
        item.y = 100;
        item.width = 400;
        item.height = 180;
        return item;
    }();
};

struct MarginRow {
    float inches;
    std::vector<int> majors; // the closing tick is the last
};

} // namespace

// ---- the band ----

TEST_F(Rulers, BandIsAsHighAsTheFirstFontAndAMajorTick) {
    EXPECT_EQ(BandHeight(session), 70);
    session->form.Fonts[0].Height = 55;
    EXPECT_EQ(BandHeight(session), 85);
}

TEST_F(Rulers, BandOfAFormWithoutRulersHasNoHeightAndItsPanelsCarryNoMarks) {
    HideRulers();
    EXPECT_EQ(BandHeight(session), 0);
    for (const Lines &drawn : {Top(), Side(BarSide::LEFT), Side(BarSide::RIGHT)}) {
        EXPECT_EQ(LinesWith(drawn, {"rectangle"}).size(), 1U);
        EXPECT_TRUE(Scale(drawn).empty());
    }
    EXPECT_EQ(LinesWith(Top(), {"rectangle"}), Lines{"rectangle -1,-71 999,-70"});
}

TEST_F(Rulers, BandHasABorderAboveAndBelow) {
    session->view.OriginX = 20;
    session->view.OriginY = 500;
    const Lines drawn = DrawingBy([this](HDC device) { PaintBandLines(session, device); });
    EXPECT_EQ(drawn, (Lines{"select pen 0 1 000000", "move 20,430", "line 1020,430", "move 20,500",
                            "line 1020,500"}));
}

// ---- the top ruler ----

TEST_F(Rulers, TopRulerOfInchesIsDrawnWhole) {
    EXPECT_EQ(
        Scale(Top()),
        (Lines{"move 0,-30",   "line 1000,-30", "move 250,-30", "line 250,0",   "text 244,-70 1",
               "move 300,-30", "line 300,0",    "move 125,-30", "line 125,-10", "move 250,-30",
               "line 250,-10", "move 31,-30",   "line 31,-20",  "move 62,-30",  "line 62,-20",
               "move 93,-30",  "line 93,-20",   "move 125,-30", "line 125,-20", "move 156,-30",
               "line 156,-20", "move 187,-30",  "line 187,-20", "move 218,-30", "line 218,-20",
               "move 250,-30", "line 250,-20",  "move 281,-30", "line 281,-20"}));
}

TEST_F(Rulers, TopRulerOfCentimetresCountsHundreds) {
    UseCentimetres();
    session->printer.ReportWidth = 120;
    EXPECT_EQ(LinesWith(Top(), {"text"}), Lines{"text 94,-70 1"});
    EXPECT_EQ(Ticks(30), (std::vector<int>{100, 120}));
    EXPECT_EQ(Ticks(20), (std::vector<int>{50, 100}));
    EXPECT_EQ(Ticks(10), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110}));
}

TEST_F(Rulers, MajorTickAtTheEndHasItsNumberAndSmallerOnesStopBeforeIt) {
    session->printer.ReportWidth = 500;
    EXPECT_EQ(LinesWith(Top(), {"text"}), (Lines{"text 244,-70 1", "text 494,-70 2"}));
    EXPECT_EQ(Ticks(30), (std::vector<int>{250, 500, 500}));
    EXPECT_EQ(Ticks(20), (std::vector<int>{125, 250, 375}));
}

TEST_F(Rulers, NumbersOfTwoDigitsAreCentredToo) {
    UseCentimetres();
    session->printer.ReportWidth = 1000;
    EXPECT_EQ(LinesWith(Top(), {"text"}).back(), "text 988,-70 10");
}

TEST_F(Rulers, ScaleStartsWhereTheMarginIsLessThanTheLeastLeftEdge) {
    const MarginRow rows[] = {
        {0.25F, {250, 300}},    {0.1F, {37, 287, 337}},   {0.5F, {250, 300}},
        {0.0F, {62, 312, 362}}, {-0.2F, {112, 362, 412}}, {0.244F, {1, 251, 301}},
    };
    for (const MarginRow &row : rows) {
        session->form.Header.LeftMargin = row.inches;
        EXPECT_EQ(Ticks(30), row.majors) << row.inches;
    }
}

TEST_F(Rulers, LabelFormsScaleStartsAtItsLabelAndIsAsWide) {
    session->LabelMode = 1;
    session->form.Header.LabelGeometry.LabelWidth = 1.5F;
    Add(ITEM_BAR, {62, 0, 437, 300}).SectionIndex = SECTION_DETAIL_1;
    EXPECT_EQ(Ticks(30), (std::vector<int>{62, 312, 437}));
    EXPECT_EQ(LinesWith(Top(), {"text"}), Lines{"text 306,-70 1"});
}

TEST_F(Rulers, ScaleOfAWidthThatIsNoNumberEnds) {
    session->LabelMode = 1;
    for (const float width : {std::nanf(""), -1e30F, std::numeric_limits<float>::infinity()}) {
        session->form.Header.LabelGeometry.LabelWidth = width;
        EXPECT_FALSE(Ticks(30).empty());
    }
    session->LabelMode = 0;
    session->printer.ReportWidth = INT32_MAX;
    EXPECT_FALSE(Ticks(30).empty());
}

TEST_F(Rulers, TopPanelHasTheOriginInItsRightEdgeTwice) {
    session->view.OriginX = 100;
    session->view.OriginY = 500;
    const Lines drawn = Top();
    EXPECT_EQ(LinesWith(drawn, {"rectangle"}), Lines{"rectangle 99,429 1199,500"});
    EXPECT_EQ(Scale(drawn)[0], "move 100,470");
    EXPECT_EQ(Scale(drawn)[1], "line 1100,470");
}

TEST_F(Rulers, RulersHaveSolidStrokesAndTransparentNumbers) {
    for (const Lines &drawn : {Top(), Side(BarSide::LEFT)}) {
        const Lines styles = LinesWith(drawn, {"select pen", "color", "mode"});
        ASSERT_GE(styles.size(), 3U);
        EXPECT_EQ(Lines(styles.end() - 3, styles.end()),
                  (Lines{"select pen 0 1 000000", "color 000000", "mode 1"}));
    }
}

// ---- the side rulers ----

TEST_F(Rulers, LeftRulerCountsFromTheCaptionsLowerEdge) {
    const Lines drawn = Side(BarSide::LEFT);
    EXPECT_EQ(LinesWith(drawn, {"rectangle"}), Lines{"rectangle -1,101 63,281"});
    // From 140 to 280, at 32, towards the bar at 62.
    EXPECT_EQ(Scale(drawn),
              (Lines{"move 32,140", "line 32,280", "move 32,140", "line 62,140", "text 20,120 0",
                     "move 32,280", "line 62,280", "move 32,265", "line 52,265", "move 32,171",
                     "line 42,171", "move 32,202", "line 42,202", "move 32,233", "line 42,233",
                     "move 32,265", "line 42,265"}));
}

TEST_F(Rulers, RightRulerIsItsMirrorWithTheNumbersBeyond) {
    UseCentimetres();
    const Lines drawn = Side(BarSide::RIGHT);
    EXPECT_EQ(LinesWith(drawn, {"rectangle"}), Lines{"rectangle 462,101 524,281"});
    const Lines scale = Scale(drawn);
    EXPECT_EQ(
        Lines(scale.begin(), scale.begin() + 14),
        (Lines{"move 492,140", "line 492,280", "move 492,140", "line 462,140", "text 497,120 0",
               "move 492,240", "line 462,240", "text 497,220 1", "move 492,280", "line 462,280",
               "move 492,190", "line 472,190", "move 492,240", "line 472,240"}));
    EXPECT_EQ(scale.back(), "line 482,280"); // small ticks reach the end here
}

TEST_F(Rulers, NumbersBeginAnewInEverySection) {
    UseCentimetres();
    bar.y = 3000;
    const Lines numbers = LinesWith(Side(BarSide::LEFT), {"text"});
    EXPECT_EQ(numbers, (Lines{"text 20,3020 0", "text 20,3120 1"}));
}

TEST_F(Rulers, SectionThatIsAllCaptionHasNoScale) {
    bar.height = 39;
    EXPECT_EQ(Scale(Side(BarSide::LEFT)),
              (Lines{"move 32,140", "line 32,139", "move 32,139", "line 62,139"}));
}

// ---- the font ----

TEST_F(Rulers, OneFontServesTheWholeTopRulerAndIsGivenUp) {
    UseCentimetres();
    session->printer.ReportWidth = 1000;
    const Lines drawn = Top();
    EXPECT_EQ(LinesWith(drawn, {"select font", "delete font"}),
              (Lines{"select font -32 Arial", "select font 16 System", "delete font -32 Arial"}));
    EXPECT_EQ(LinesWith(drawn, {"text"}).size(), 10U);
}

TEST_F(Rulers, FontThatCannotBeMadeLeavesTheNumbersInTheOneInForce) {
    const FailingCall none("CreateFontIndirectA", CreateFontIndirectA, nullptr, 1, EVERY_CALL);
    const Lines drawn = Top();
    EXPECT_EQ(LinesWith(drawn, {"text"}).size(), 1U);
    EXPECT_TRUE(LinesWith(drawn, {"select font"}).empty());
}
