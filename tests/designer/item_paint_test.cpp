#include "designer/item_paint.h"

#include "tests/support/design_paint.h"
#include "tests/support/failing_call.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

constexpr RECT PLACE{100, 200, 300, 300};

class ItemPaint : public DesignPaint {
protected:
    // Every decoration that an item may have.
    static void Decorate(ItemRecord *item) {
        item->ItemFlags |= FLAG_BACKGROUND;
        item->Background = {BS_SOLID, 0x00FF00, 0};
        item->OutlineSides = SIDE_TOP;
        item->OutlineWidth = 3;
        item->OutlineColor = 0x0000FF;
    }
};

struct ViewRow {
    RECT place;
    bool painted;
};

} // namespace

// ---- what is on view ----

TEST_F(ItemPaint, ItemIsRejectedByItsRectangleBeforeAnyObjectIsMade) {
    session->view.OriginX = 50;
    session->view.OriginY = 60;
    const ViewRow rows[] = {
        {{1050, 100, 1100, 200}, true}, {{1051, 100, 1100, 200}, false},
        {{10, 100, 50, 200}, true},     {{10, 100, 49, 200}, false},
        {{100, 860, 200, 900}, true},   {{100, 861, 200, 900}, false},
        {{100, 10, 200, 60}, true},     {{100, 10, 200, 59}, false},
        {{0, 0, 2000, 2000}, true},
    };
    for (const ViewRow &row : rows) {
        Decorate(&Add(ITEM_LINE, row.place));
        const FailingCall pens("CreatePen", CreatePen, nullptr, 1, 0);
        EXPECT_EQ(!Painted().empty(), row.painted) << row.place.left << "," << row.place.top;
        EXPECT_EQ(pens.Seen() > 0, row.painted) << row.place.left << "," << row.place.top;
    }
}

TEST_F(ItemPaint, PlacesAtTheEndOfAFormsRangeDoNotWrap) {
    ItemRecord &item = Add(ITEM_LINE, {0, 0, 10, 10});
    item.x = item.y = item.width = item.height = INT16_MAX;
    EXPECT_TRUE(Painted().empty());
    session->view.OriginX = session->view.OriginY = INT16_MAX;
    EXPECT_FALSE(Painted().empty());
}

// ---- the order of decorations ----

TEST_F(ItemPaint, BackgroundOutlineAndContentFollowEachOther) {
    Decorate(&Add(ITEM_LINE, PLACE));
    EXPECT_EQ(
        Painted(),
        (Lines{"select brush 0 00FF00 0", "fill 100,200 200,100 F00021", "select brush 0 FFFFFF 0",
               "delete brush 0 00FF00 0", "select pen 0 3 0000FF", "move 100,200", "line 300,200",
               "select pen 0 1 000000", "delete pen 0 3 0000FF", "select pen 0 0 000000",
               "move 100,250", "line 300,250", "select pen 0 1 000000", "delete pen 0 0 000000"}));
}

TEST_F(ItemPaint, OutlineGoesLeftUpTopRightDownAndBottomBack) {
    AddText(ITEM_FIELD, PLACE, "").OutlineSides = 15;
    session.AddField(FIELD_DATA, "F", TYPE_NUMERIC);
    EXPECT_EQ(Strokes(Painted()),
              (Lines{"move 100,300", "line 100,200", "move 100,200", "line 300,200", "move 300,200",
                     "line 300,300", "move 300,300", "line 100,300"}));
}

TEST_F(ItemPaint, WidthOfAnOutlineGoesToThePenUnscaled) {
    Decorate(&Add(ITEM_LINE, PLACE));
    for (const int width : {0, 1, 25}) {
        Last().OutlineWidth = static_cast<int16_t>(width);
        EXPECT_EQ(LinesWith(Painted(), {"select pen"})[0],
                  "select pen 0 " + std::to_string(width) + " 0000FF");
    }
}

TEST_F(ItemPaint, SectionBarMayHaveABackground) {
    Add(ITEM_BAR, PLACE);
    EXPECT_TRUE(LinesWith(Painted(), {"fill"}).empty());
    Decorate(&Last());
    EXPECT_EQ(LinesWith(Painted(), {"fill"}), Lines{"fill 100,200 200,100 F00021"});
}

TEST_F(ItemPaint, SectionBarWithoutWidthOrHeightPassesTheViewTestAndPaintsNothing) {
    for (const RECT &place : {RECT{100, 200, 100, 300}, RECT{100, 200, 300, 200},
                              RECT{100, 200, 90, 300}, RECT{100, 200, 300, 190}}) {
        Add(ITEM_BAR, place);
        EXPECT_TRUE(Painted().empty()) << place.right << "," << place.bottom;
    }
}

// ---- the group ----

TEST_F(ItemPaint, GroupIsARedRectangleWhileItIsSelected) {
    Decorate(&Add(ITEM_GROUP, PLACE));
    EXPECT_TRUE(Painted().empty());
    session->form.SelectedItem = LastRow();
    EXPECT_EQ(Painted(),
              (Lines{"select pen 0 1 0000FF", "move 100,200", "line 300,200", "line 300,300",
                     "line 100,300", "line 100,200", "select pen 0 1 000000"}));
}

TEST_F(ItemPaint, MembersOfTheSelectedGroupAreMarkedWithDotsAlsoThoseOutsideItsRectangle) {
    AddText(ITEM_LABEL, {100, 200, 200, 250}, "in");
    AddText(ITEM_LABEL, {120, 220, 220, 270}, "out").ItemFlags = FLAG_GROUP_TOGGLE;
    AddText(ITEM_LABEL, {600, 200, 700, 250}, "added").ItemFlags = FLAG_GROUP_TOGGLE;
    AddText(ITEM_LABEL, {600, 300, 700, 350}, "beside");
    Add(ITEM_GROUP, {90, 190, 300, 300});
    const bool members[] = {true, false, true, false};
    for (int row = 0; row < 4; ++row) EXPECT_TRUE(Strokes(Painted(row)).empty()) << row;
    session->form.SelectedItem = LastRow();
    for (int row = 0; row < 4; ++row) {
        const Lines marks = LinesWith(Painted(row), {"select pen 2", "move", "line"});
        EXPECT_EQ(marks.size(), members[row] ? 6U : 0U) << row;
    }
    EXPECT_EQ(LinesWith(Painted(2), {"select pen", "move", "line"}),
              (Lines{"select pen 2 1 000000", "move 600,200", "line 700,200", "line 700,250",
                     "line 600,250", "line 600,200", "select pen 0 1 000000"}));
}

// ---- lines ----

TEST_F(ItemPaint, LineRunsByItsAngleInItsOwnPen) {
    ItemRecord &line = Add(ITEM_LINE, PLACE);
    line.LineStyle = PS_DASH;
    line.LineWidth = 7;
    line.LineColor = 0x112233;
    line.RunOffset = 40; // of a run alone
    const Lines strokes[] = {
        {"move 100,250", "line 300,250"},
        {"move 200,200", "line 200,300"},
        {"move 100,200", "line 300,300"},
        {"move 100,300", "line 300,200"},
    };
    for (int angle = 0; angle < 4; ++angle) {
        line.LineAngle = static_cast<int16_t>(angle);
        EXPECT_EQ(Strokes(Painted()), strokes[angle]) << angle;
        EXPECT_EQ(Painted()[0], "select pen 1 7 112233");
    }
}

// ---- pictures ----

TEST_F(ItemPaint, PictureFillsItsItemWithAllOfItsBitmap) {
    Add(ITEM_PICTURE, PLACE).FontIndex = static_cast<int16_t>(AddPicture());
    EXPECT_EQ(Painted(), Lines{"copy 100,200 200,100 from 0,0 8,4 CC0020"});
}

TEST_F(ItemPaint, PictureWhoseBitmapCannotBeSelectedLeavesItsItemEmpty) {
    Add(ITEM_PICTURE, PLACE).FontIndex = static_cast<int16_t>(AddPicture());
    {
        const FailingCall none("SelectObject", SelectObject, nullptr, 1, EVERY_CALL);
        EXPECT_TRUE(Painted().empty());
    }
    {
        const FailingCall none("CreateCompatibleDC", CreateCompatibleDC, nullptr, 1, EVERY_CALL);
        EXPECT_TRUE(Painted().empty());
    }
    Last().FontIndex = 0; // no picture at all
    EXPECT_TRUE(Painted().empty());
    Last().FontIndex = 99;
    EXPECT_TRUE(Painted().empty());
}

// ---- failures ----

TEST_F(ItemPaint, DecorationWithoutItsPenOrBrushIsSkippedAndPaintingGoesOn) {
    Decorate(&AddText(ITEM_LABEL, PLACE, "text"));
    {
        const FailingCall none("CreatePen", CreatePen, nullptr, 1, EVERY_CALL);
        const Lines drawn = Painted();
        EXPECT_TRUE(Strokes(drawn).empty());
        EXPECT_EQ(LinesWith(drawn, {"fill", "text"}).size(), 2U);
    }
    {
        const FailingCall none("CreateBrushIndirect", CreateBrushIndirect, nullptr, 1, EVERY_CALL);
        const Lines drawn = Painted();
        EXPECT_EQ(Strokes(drawn).size(), 2U);
        EXPECT_EQ(LinesWith(drawn, {"fill", "text"}).size(), 1U);
    }
}

TEST_F(ItemPaint, HundredsOfPaintingsLeaveNothingBehind) {
    Decorate(&AddText(ITEM_LABEL, PLACE, "text"));
    Decorate(&Add(ITEM_LINE, PLACE));
    Decorate(&Add(ITEM_BAR, PLACE));
    Add(ITEM_PICTURE, PLACE).FontIndex = static_cast<int16_t>(AddPicture());
    AddField(TYPE_NUMERIC, PLACE, "999").FieldFlags = FIELD_POSTNET;
    const HDC screen = GetDC(nullptr);
    const HDC device = CreateCompatibleDC(screen);
    const auto paint = [&] {
        for (int row = 0; row < session->form.TotalItems; ++row) PaintItem(session, device, row);
    };
    paint();
    const int objects = CountGdiObjects();
    for (int time = 0; time < 300; ++time) paint();
    EXPECT_EQ(CountGdiObjects(), objects);
    DeleteDC(device);
    ReleaseDC(nullptr, screen);
}
