// Labels and the samples of fields, as the designer shows them.
#include "designer/item_paint.h"

#include <cstring>

#include "tests/support/design_paint.h"

using namespace tessarine;

namespace {

constexpr RECT PLACE{100, 200, 300, 300};

class ItemTextPaint : public DesignPaint {
protected:
    // What DrawTextA and the clip are asked for.
    Lines Calls() {
        calls.Take();
        Painted();
        return calls.Take();
    }
};

struct LabelRow {
    int flags;
    const char *text;
    const char *measure;
    const char *clip;
    const char *draw;
};

struct FieldRow {
    int flags;
    const char *text;
};

} // namespace

// ---- labels ----

TEST_F(ItemTextPaint, LabelIsMeasuredClippedAndDrawnByItsFlags) {
    const LabelRow rows[] = {
        {FLAG_LEFT, "a", "110,200,300,300 as E00", "110,200,300,300", "110,200,300,240 as A00: a"},
        {FLAG_RIGHT, "a", "100,200,290,300 as E02", "100,200,290,300", "100,200,290,240 as A02: a"},
        {FLAG_LEFT | FLAG_RIGHT, "a", "110,200,300,300 as E00", "110,200,300,300",
         "110,200,300,240 as A00: a"},
        {FLAG_CENTER, "a", "100,200,300,300 as E01", "100,200,300,300",
         "100,200,300,240 as A01: a"},
        {FLAG_MIDDLE, "a", "100,200,300,300 as E01", "100,200,300,300",
         "100,230,300,270 as A01: a"},
        {FLAG_BOTTOM, "a", "100,200,300,300 as E01", "100,200,300,300",
         "100,260,300,300 as A01: a"},
        {FLAG_MIDDLE, "a\nb", "100,200,300,300 as E01", "100,200,300,300",
         "100,210,300,290 as A01: a\nb"},
    };
    for (const LabelRow &row : rows) {
        AddText(ITEM_LABEL, PLACE, row.text).ItemFlags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(Calls(),
                  (Lines{std::string("measure ") + row.measure, std::string("clip ") + row.clip,
                         std::string("draw ") + row.draw, "no clip"}))
            << row.flags;
    }
}

TEST_F(ItemTextPaint, LabelTallerThanItsItemIsClippedAndCentringHidesItsFirstLine) {
    AddText(ITEM_LABEL, PLACE, "a\nb\nc\nd").ItemFlags = FLAG_MIDDLE;
    EXPECT_EQ(Calls(), (Lines{"measure 100,200,300,300 as E01", "clip 100,200,300,300",
                              "draw 100,170,300,330 as A01: a\nb\nc\nd", "no clip"}));
    Last().ItemFlags = FLAG_BOTTOM;
    EXPECT_EQ(Calls()[2], "draw 100,140,300,300 as A01: a\nb\nc\nd");
}

TEST_F(ItemTextPaint, HalfOfAnOddOverhangTruncatesTowardsZero) {
    AddText(ITEM_LABEL, {100, 200, 300, 235}, "a").ItemFlags = FLAG_MIDDLE;
    EXPECT_EQ(Calls()[2], "draw 100,198,300,238 as A01: a");
}

TEST_F(ItemTextPaint, LabelHasItsFontItsColorAndATransparentGround) {
    ItemRecord &label = AddText(ITEM_LABEL, PLACE, "a");
    label.FontIndex = static_cast<int16_t>(AddFont());
    label.TextColor = 0x336699;
    const Lines drawn = Painted();
    ASSERT_GE(drawn.size(), 3U);
    EXPECT_EQ(drawn[0], "select font -30 Courier New");
    EXPECT_EQ(drawn[1], "color 336699");
    EXPECT_EQ(drawn[2], "mode 1");
}

TEST_F(ItemTextPaint, FontRowThatHoldsAPictureIsNeverSelected) {
    ItemRecord &label = AddText(ITEM_LABEL, PLACE, "a");
    label.FontIndex = static_cast<int16_t>(AddPicture());
    const Lines drawn = Painted();
    EXPECT_TRUE(LinesWith(drawn, {"select font"}).empty());
    EXPECT_EQ(drawn[0], "color 000000");
}

TEST_F(ItemTextPaint, LabelOfAHostsImpossibleFontRowHasTheFirst) {
    AddText(ITEM_LABEL, PLACE, "a");
    for (const int row : {-1, int{MAX_FONTS}, INT16_MAX}) {
        Last().FontIndex = static_cast<int16_t>(row);
        EXPECT_EQ(LinesWith(Painted(), {"select font"}).size(), 1U) << row;
    }
}

TEST_F(ItemTextPaint, ClipOfALabelIsInDevicePixelsAndAllClippingEndsWithIt) {
    AddText(ITEM_LABEL, PLACE, "a");
    const HDC device = CreateCompatibleDC(nullptr);
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, 250, 250, nullptr);
    SetViewportExtEx(device, 125, 125, nullptr);
    SetViewportOrgEx(device, 0, 8, nullptr);
    SetWindowOrgEx(device, 20, 40, nullptr);
    const HRGN canvas = CreateRectRgn(0, 8, 500, 400);
    SelectClipRgn(device, canvas);
    calls.Take();
    PaintItem(session, device, LastRow());
    const Lines asked = calls.Take();
    ASSERT_EQ(asked.size(), 4U);
    EXPECT_EQ(asked[1], "clip 40,88,140,138");
    EXPECT_EQ(asked[3], "no clip");
    const HRGN left = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(device, left), 0); // none
    DeleteObject(left);
    DeleteObject(canvas);
    DeleteDC(device);
}

// ---- fields ----

TEST_F(ItemTextPaint, SampleStandsByTheFlagsOfItsItem) {
    const FieldRow rows[] = {
        {FLAG_LEFT, "text 110,230 999"},   {FLAG_RIGHT, "text 254,230 999"},
        {FLAG_CENTER, "text 182,230 999"}, {FLAG_TOP, "text 182,200 999"},
        {FLAG_MIDDLE, "text 182,230 999"}, {FLAG_BOTTOM, "text 182,260 999"},
    };
    AddField(TYPE_NUMERIC, PLACE, "999");
    for (const FieldRow &row : rows) {
        Last().ItemFlags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(Texts(), Lines{std::string(row.text) + " clip 100,200,300,300"}) << row.flags;
    }
}

TEST_F(ItemTextPaint, SampleHasItsFontItsColorAndATransparentGround) {
    AddField(TYPE_NUMERIC, PLACE, "999");
    Last().FontIndex = static_cast<int16_t>(AddFont());
    Last().TextColor = 0x336699;
    EXPECT_EQ(Painted(), (Lines{"select font -30 Courier New", "color 336699", "mode 1",
                                "text 170,235 999 clip 100,200,300,300"}));
}

TEST_F(ItemTextPaint, PictureFieldIsItsOutlineAlone) {
    AddField(TYPE_PICTURE, PLACE, "PPP");
    EXPECT_TRUE(Painted().empty());
    Last().OutlineSides = SIDE_TOP;
    EXPECT_EQ(Strokes(Painted()), (Lines{"move 100,200", "line 300,200"}));
}

TEST_F(ItemTextPaint, FieldWithoutASamplePaintsNothing) {
    AddField(TYPE_NUMERIC, PLACE, "");
    EXPECT_TRUE(Painted().empty());
}

TEST_F(ItemTextPaint, ItemOfAHostsImpossibleFieldRowPaintsNothing) {
    AddField(TYPE_NUMERIC, PLACE, "999");
    for (const int row : {-1, session->form.FieldCount, INT16_MAX}) {
        Last().FieldIndex = static_cast<int16_t>(row);
        EXPECT_TRUE(Painted().empty()) << row;
    }
}

TEST_F(ItemTextPaint, WrappingFieldSuggestsLinesNoneOfWhichStandsHalfOutside) {
    // Lines begin at y + (50 - 40) / 2 - 1 = 204 and are 40 high.
    const int bottoms[] = {210, 284, 285, 300, 324, 325, 405};
    const size_t counts[] = {1, 1, 2, 2, 2, 3, 5};
    for (const int flag : {FIELD_WRAP, FIELD_WORD_WRAP})
        for (size_t number = 0; number < std::size(bottoms); ++number) {
            AddField(TYPE_TEXT, {100, 200, 300, bottoms[number]}, "x").FieldFlags =
                static_cast<uint16_t>(flag);
            Last().ItemFlags = FLAG_LEFT | FLAG_BOTTOM; // up and down they don't count
            const Lines texts = Texts();
            ASSERT_EQ(texts.size(), counts[number]) << bottoms[number];
            const std::string clip = " x clip 100,200,300," + std::to_string(bottoms[number]);
            for (size_t line = 0; line < texts.size(); ++line)
                EXPECT_EQ(texts[line], "text 110," + std::to_string(204 + 40 * line) + clip);
        }
}

TEST_F(ItemTextPaint, OnlyTextsWrap) {
    AddField(TYPE_NUMERIC, PLACE, "9").FieldFlags = FIELD_WRAP | FIELD_WORD_WRAP;
    EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(ItemTextPaint, WrappingFieldInAFontWithoutHeightIsOneLine) {
    AddField(TYPE_TEXT, PLACE, "x").FieldFlags = FIELD_WRAP;
    Last().FontIndex = static_cast<int16_t>(AddFont());
    session->form.Fonts[Last().FontIndex].Height = 0;
    EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(ItemTextPaint, InvalidZipCodeShowsInTheFirstFontInsteadOfBars) {
    const char *samples[] = {"920082324", "92008", "92008232434", "9200823", "abc"};
    const bool valid[] = {true, true, true, false, false};
    AddField(TYPE_TEXT, PLACE, "").FieldFlags = FIELD_POSTNET;
    Last().FontIndex = static_cast<int16_t>(AddFont());
    for (size_t number = 0; number < std::size(samples); ++number) {
        std::string(samples[number]).copy(Last().LabelText, 12);
        Last().LabelText[std::strlen(samples[number])] = 0;
        const Lines drawn = Painted();
        EXPECT_EQ(drawn[0] == "select font -30 Courier New", valid[number]) << samples[number];
        // The measure stays that of the item's font, and the text that of the sample.
        const int x = 100 + (200 - 20 * static_cast<int>(std::strlen(samples[number]))) / 2;
        EXPECT_EQ(drawn.back(), "text " + std::to_string(x) + ",235 " + samples[number] +
                                    " clip 100,200,300,300");
    }
}
