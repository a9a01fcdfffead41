// Backgrounds, outlines, lines and pictures.
#include "run/shapes.h"

#include <cstring>

#include "frame/memory.h"
#include "run/items.h"
#include "tests/support/composition.h"
#include "tests/support/failing_call.h"

namespace {

using Lines = std::vector<std::string>;

// Items of 100 by 60 at 10, 20: at 60, 120 on the page.
class Shapes : public Composition {
protected:
    Shapes() { Section(SECTION_DETAIL_1, 300); }

    ItemRecord &Shape(int type) { return Item(type, 10, 20, 100, 60); }
    Lines Strokes() { return LinesWith(DrawingOfLast(), {"move", "line"}); }
};

struct SidesRow {
    int sides;
    Lines strokes;
};

} // namespace

TEST_F(Shapes, ItemLiesOnThePageWithItsOffset) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.RunOffset = 5;
    const RECT place = tessarine::ItemRectangle(session, item);
    EXPECT_EQ(place.left, 60);
    EXPECT_EQ(place.top, 125);
    EXPECT_EQ(place.right, 160);
    EXPECT_EQ(place.bottom, 185);
}

TEST_F(Shapes, RowBottomIsRaisedAndNeverLowered) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.RunOffset = 5;
    tessarine::RaiseRowBottom(session, item);
    EXPECT_EQ(run.RowBottom, 185);
    item.height = 1;
    tessarine::RaiseRowBottom(session, item);
    EXPECT_EQ(run.RowBottom, 185);
}

TEST_F(Shapes, OtherItemsHaveBackgroundAndOutlineAlone) {
    Shape(ITEM_GROUP);
    EXPECT_TRUE(DrawingOfLast().empty());
    EXPECT_EQ(run.RowBottom, 100);
}

// ---- backgrounds ----

TEST_F(Shapes, BackgroundFillsTheItem) {
    ItemRecord &item = Shape(ITEM_BAR);
    item.ItemFlags |= FLAG_BACKGROUND;
    item.Background = {BS_HATCHED, 0x00FF00, HS_DIAGCROSS};
    const Lines drawn = DrawingOfLast();
    ASSERT_GE(drawn.size(), 2U);
    EXPECT_EQ(drawn[0], "select brush 2 00FF00 5");
    EXPECT_EQ(drawn[1], "fill 60,120 100,60 F00021");
    EXPECT_EQ(drawn.back(), "delete brush 2 00FF00 5");
}

TEST_F(Shapes, BackgroundThatIsOffPaintsNothing) {
    Shape(ITEM_BAR).Background = {BS_SOLID, 0x00FF00, 0};
    EXPECT_TRUE(DrawingOfLast().empty());
}

TEST_F(Shapes, BrushThatCannotBeMadePaintsNothing) {
    ItemRecord &item = Shape(ITEM_BAR);
    item.ItemFlags |= FLAG_BACKGROUND;
    item.Background = {99, 0x00FF00, 0};
    EXPECT_TRUE(LinesWith(DrawingOfLast(), {"fill"}).empty());
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Shapes, PatternBackgroundOfADamagedFormReachesForNoMemory) {
    ItemRecord &item = Shape(ITEM_BAR);
    item.ItemFlags |= FLAG_BACKGROUND;
    const FailingCall counts("CreateBrushIndirect", CreateBrushIndirect, nullptr, 1, 0);
    for (const int style : {BS_PATTERN, BS_DIBPATTERN, BS_DIBPATTERNPT, BS_DIBPATTERN8X8})
        for (const int hatch : {-1, 4660, INT16_MAX}) {
            item.Background = {static_cast<uint16_t>(style), 0x00FF00, static_cast<int16_t>(hatch)};
            EXPECT_TRUE(DrawingOfLast().empty()) << style << " " << hatch;
        }
    EXPECT_EQ(counts.Seen(), 0);
}

TEST_F(Shapes, BackgroundComesFirstThenOutlineThenContent) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.ItemFlags |= FLAG_BACKGROUND;
    item.Background = {BS_SOLID, 0x00FF00, 0};
    item.OutlineSides = SIDE_TOP;
    item.LineAngle = 2;
    EXPECT_EQ(LinesWith(DrawingOfLast(), {"fill", "move", "line"}),
              (Lines{"fill 60,120 100,60 F00021", "move 60,120", "line 160,120", "move 60,120",
                     "line 160,180"}));
}

// ---- outlines ----

TEST_F(Shapes, EachSideIsOneStrokeInAFixedOrder) {
    const SidesRow rows[] = {
        {SIDE_LEFT, {"move 60,180", "line 60,120"}},
        {SIDE_TOP, {"move 60,120", "line 160,120"}},
        {SIDE_RIGHT, {"move 160,120", "line 160,180"}},
        {SIDE_BOTTOM, {"move 160,180", "line 60,180"}},
        {SIDE_LEFT | SIDE_TOP, {"move 60,180", "line 60,120", "move 60,120", "line 160,120"}},
        {15,
         {"move 60,180", "line 60,120", "move 60,120", "line 160,120", "move 160,120",
          "line 160,180", "move 160,180", "line 60,180"}},
        {0, {}},
    };
    ItemRecord &item = Shape(ITEM_BAR);
    for (const SidesRow &row : rows) {
        item.OutlineSides = static_cast<uint16_t>(row.sides);
        EXPECT_EQ(Strokes(), row.strokes) << row.sides;
    }
}

TEST_F(Shapes, OutlineLiesOnTheItemItselfForLabelsToo) {
    Shape(ITEM_LABEL).OutlineSides = SIDE_TOP;
    EXPECT_EQ(Strokes(), (Lines{"move 60,120", "line 160,120"}));
}

TEST_F(Shapes, OutlineHasItsOwnPenAndTheBlackPenFollows) {
    ItemRecord &item = Shape(ITEM_BAR);
    item.OutlineSides = SIDE_TOP;
    item.OutlineStyle = PS_DASH;
    item.OutlineWidth = 1;
    item.OutlineColor = 0x0000FF;
    EXPECT_EQ(DrawingOfLast(), (Lines{"select pen 1 1 0000FF", "move 60,120", "line 160,120",
                                      "select pen 0 0 000000", "delete pen 1 1 0000FF"}));
}

TEST_F(Shapes, PaintOutlineReadsOnlyTheTopOfItsRectangle) {
    Shape(ITEM_BAR);
    const RECT rectangle{-500, 300, -400, -300};
    tessarine::PaintOutline(session, session->pages.PageRecorder, rectangle, SIDE_RIGHT,
                            session->form.TotalItems - 1);
    EXPECT_EQ(Drawing(), (Lines{"move 160,300", "line 160,360"}));
}

// ---- lines ----

namespace {

struct AngleRow {
    int angle;
    int offset;
    Lines strokes;
};

} // namespace

TEST_F(Shapes, LineRunsByItsAngle) {
    const AngleRow rows[] = {
        {0, 0, {"move 60,150", "line 160,150"}},  {1, 0, {"move 110,120", "line 110,180"}},
        {2, 0, {"move 60,120", "line 160,180"}},  {3, 0, {"move 60,180", "line 160,120"}},
        {77, 0, {"move 60,180", "line 160,120"}}, {-1, 0, {"move 60,180", "line 160,120"}},
    };
    ItemRecord &item = Shape(ITEM_LINE);
    for (const AngleRow &row : rows) {
        item.LineAngle = static_cast<int16_t>(row.angle);
        EXPECT_EQ(Strokes(), row.strokes) << row.angle;
    }
}

TEST_F(Shapes, PushedLineMovesExceptTheFarEndOfABackDiagonal) {
    const AngleRow rows[] = {
        {0, 30, {"move 60,180", "line 160,180"}},
        {1, 30, {"move 110,150", "line 110,210"}},
        {2, 30, {"move 60,150", "line 160,210"}},
        {3, 30, {"move 60,210", "line 160,120"}},
    };
    ItemRecord &item = Shape(ITEM_LINE);
    for (const AngleRow &row : rows) {
        item.LineAngle = static_cast<int16_t>(row.angle);
        item.RunOffset = static_cast<int16_t>(row.offset);
        EXPECT_EQ(Strokes(), row.strokes) << row.angle;
    }
    EXPECT_EQ(run.RowBottom, 210);
}

TEST_F(Shapes, HalvesOfALineTruncateTowardsZero) {
    ItemRecord &item = Item(ITEM_LINE, 10, 20, 101, -61);
    EXPECT_EQ(Strokes(), (Lines{"move 60,90", "line 161,90"}));
    item.LineAngle = 1;
    EXPECT_EQ(Strokes(), (Lines{"move 110,120", "line 110,59"}));
}

TEST_F(Shapes, DiagonalOfNoHeightIsHorizontal) {
    Item(ITEM_LINE, 10, 20, 100, 0).LineAngle = 2;
    EXPECT_EQ(Strokes(), (Lines{"move 60,120", "line 160,120"}));
}

TEST_F(Shapes, LineHasItsOwnPenAndRaisesTheRow) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.LineStyle = PS_SOLID;
    item.LineWidth = 4;
    item.LineColor = 0xFF0000;
    EXPECT_EQ(DrawingOfLast(), (Lines{"select pen 0 4 FF0000", "move 60,150", "line 160,150",
                                      "select pen 0 0 000000", "delete pen 0 4 FF0000"}));
    EXPECT_EQ(run.RowBottom, 180);
}

TEST_F(Shapes, PenThatCannotBeMadeTakesTheShapeAwayAndNothingElse) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.ItemFlags |= FLAG_BACKGROUND;
    item.Background = {BS_SOLID, 0x00FF00, 0};
    item.OutlineSides = 15;
    const FailingCall none("CreatePen", CreatePen, nullptr, 1, EVERY_CALL);
    const Lines drawn = DrawingOfLast();
    EXPECT_EQ(none.Seen(), 2);
    EXPECT_TRUE(LinesWith(drawn, {"move", "line", "select pen"}).empty());
    EXPECT_EQ(LinesWith(drawn, {"fill"}).size(), 1U);
    EXPECT_EQ(run.RowBottom, 180);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Shapes, ShapesLeaveNoObjectsBehind) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.ItemFlags |= FLAG_BACKGROUND;
    item.OutlineSides = 15;
    // A metafile has a row for each object that lives at once: two of its own, two of the stock.
    for (int round = 0; round < 1000; ++round)
        tessarine::PrintItem(session, session->pages.PageRecorder, 1);
    const HMETAFILE page = CloseMetaFile(session->pages.PageRecorder);
    const std::string bytes = BytesOfMetafile(page);
    DeleteMetaFile(page);
    session->pages.PageRecorder = CreateMetaFileA(nullptr);
    uint16_t objects = 0;
    std::memcpy(&objects, bytes.data() + 10, sizeof objects);
    EXPECT_LT(objects, 10);
    EXPECT_TRUE(ReadMetafile(bytes).Sound());
}

// ---- pictures ----

namespace {

class Pictures : public Shapes {
protected:
    Pictures() {
        ItemRecord &item = Shape(ITEM_PICTURE);
        item.FontIndex = 3;
        picture = &session->form.Fonts[3];
        picture->InUse = picture->IsPicture = 1;
        picture->InfoBlock = tessarine::sAlloc(sizeof(BITMAPINFOHEADER));
        picture->BitsBlock = tessarine::sAlloc(2 * 3 * 4);
        auto *info = static_cast<BITMAPINFOHEADER *>(GlobalLock(picture->InfoBlock));
        *info = BITMAPINFOHEADER{sizeof *info, 2, 3, 1, 32, BI_RGB, 24, 0, 0, 0, 0};
        GlobalUnlock(picture->InfoBlock);
        std::memset(GlobalLock(picture->BitsBlock), 0x55, 24);
        GlobalUnlock(picture->BitsBlock);
    }
    ~Pictures() override {
        tessarine::FreeHandle(picture->BitsBlock);
        tessarine::FreeHandle(picture->InfoBlock);
    }

    FontEntry *picture;
};

} // namespace

TEST_F(Pictures, PictureFillsItsItemWhateverItsProportions) {
    EXPECT_EQ(DrawingOfLast(), (Lines{"picture 60,120 100,60 from 0,0 2,3 CC0020"}));
    EXPECT_EQ(run.RowBottom, 180);
    EXPECT_EQ(GlobalFlags(picture->BitsBlock) & GMEM_LOCKCOUNT, 0U);
    EXPECT_EQ(GlobalFlags(picture->InfoBlock) & GMEM_LOCKCOUNT, 0U);
}

TEST_F(Pictures, PictureMovesWithItsOffset) {
    session->form.Items[1].RunOffset = 9;
    EXPECT_EQ(DrawingOfLast(), (Lines{"picture 60,129 100,60 from 0,0 2,3 CC0020"}));
    EXPECT_EQ(run.RowBottom, 189);
}

TEST_F(Pictures, ReleasedPictureDrawsNothingAndStillTakesItsRoom) {
    tessarine::FreeHandle(picture->BitsBlock);
    picture->BitsBlock = nullptr;
    EXPECT_TRUE(DrawingOfLast().empty());
    EXPECT_EQ(run.RowBottom, 180);
    tessarine::FreeHandle(picture->InfoBlock);
    picture->InfoBlock = nullptr;
    EXPECT_TRUE(DrawingOfLast().empty());
}
