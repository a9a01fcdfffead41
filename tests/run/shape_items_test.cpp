// Where shapes and pictures of a run stand on its page, and in which order.
#include "run/shape_items.h"

#include <cstring>

#include "frame/memory.h"
#include "run/items.h"
#include "tests/support/composition.h"
#include "tests/support/failing_call.h"

namespace {

using Lines = std::vector<std::string>;

// Items of 100 by 60 at 10, 20: at 60, 120 on the page.
class ShapeItems : public Composition {
protected:
    ShapeItems() { Section(SECTION_DETAIL_1, 300); }

    ItemRecord &Shape(int type) { return Item(type, 10, 20, 100, 60); }
    Lines Strokes() { return LinesWith(DrawingOfLast(), {"move", "line"}); }
};

} // namespace

TEST_F(ShapeItems, ItemLiesOnThePageWithItsOffset) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.RunOffset = 5;
    const RECT place = tessarine::ItemRectangle(session, item);
    EXPECT_EQ(place.left, 60);
    EXPECT_EQ(place.top, 125);
    EXPECT_EQ(place.right, 160);
    EXPECT_EQ(place.bottom, 185);
}

TEST_F(ShapeItems, RowBottomIsRaisedAndNeverLowered) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.RunOffset = 5;
    tessarine::RaiseRowBottom(session, item);
    EXPECT_EQ(run.RowBottom, 185);
    item.height = 1;
    tessarine::RaiseRowBottom(session, item);
    EXPECT_EQ(run.RowBottom, 185);
}

TEST_F(ShapeItems, OtherItemsHaveBackgroundAndOutlineAlone) {
    Shape(ITEM_GROUP);
    EXPECT_TRUE(DrawingOfLast().empty());
    EXPECT_EQ(run.RowBottom, 100);
}

// ---- order ----

TEST_F(ShapeItems, BackgroundComesFirstThenOutlineThenContent) {
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

TEST_F(ShapeItems, OutlineLiesOnTheItemItselfForLabelsToo) {
    Shape(ITEM_LABEL).OutlineSides = SIDE_TOP;
    EXPECT_EQ(Strokes(), (Lines{"move 60,120", "line 160,120"}));
}

TEST_F(ShapeItems, OutlineHasItsOwnPenAndTheBlackPenFollows) {
    ItemRecord &item = Shape(ITEM_BAR);
    item.OutlineSides = SIDE_TOP;
    item.OutlineStyle = PS_DASH;
    item.OutlineWidth = 1;
    item.OutlineColor = 0x0000FF;
    EXPECT_EQ(DrawingOfLast(), (Lines{"select pen 1 1 0000FF", "move 60,120", "line 160,120",
                                      "select pen 0 0 000000", "delete pen 1 1 0000FF"}));
}

// ---- lines ----

namespace {

struct AngleRow {
    int angle;
    int offset;
    Lines strokes;
};

} // namespace

TEST_F(ShapeItems, PushedLineMovesExceptTheFarEndOfABackDiagonal) {
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

TEST_F(ShapeItems, LineHasItsOwnPenAndRaisesTheRow) {
    ItemRecord &item = Shape(ITEM_LINE);
    item.LineStyle = PS_SOLID;
    item.LineWidth = 4;
    item.LineColor = 0xFF0000;
    EXPECT_EQ(DrawingOfLast(), (Lines{"select pen 0 4 FF0000", "move 60,150", "line 160,150",
                                      "select pen 0 0 000000", "delete pen 0 4 FF0000"}));
    EXPECT_EQ(run.RowBottom, 180);
}

TEST_F(ShapeItems, PenThatCannotBeMadeTakesTheShapeAwayAndNothingElse) {
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

TEST_F(ShapeItems, ShapesLeaveNoObjectsBehind) {
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

class Pictures : public ShapeItems {
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
