#include "designer/section_bar.h"

#include "designer/panel.h"
#include "tests/support/design_paint.h"
#include "tests/support/failing_call.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

constexpr RECT PLACE{62, 100, 462, 280};

class SectionBar : public DesignPaint {
protected:
    SectionBar() {
        session->form.Header.RulerFlags = 0; // panels alone
        Add(ITEM_BAR, PLACE).SectionIndex = SECTION_PAGE_HEADER;
    }
    Lines Panels() { return LinesWith(Painted(), {"rectangle"}); }
    void SortBy(int section, const char *caption) {
        const int field = session.AddField(FIELD_DATA, "F", TYPE_TEXT);
        std::string(caption).copy(session->form.Fields[field].Caption, 51);
        session->form.Breaks[session->form.BreakCount++] = {static_cast<int16_t>(field),
                                                            static_cast<int16_t>(field),
                                                            static_cast<int16_t>(section)};
    }
    std::string Caption(int section) { return CaptionOf(session, section); }
    std::string Name(int section) { return session->form.SectionNames[section]; }
};

} // namespace

// ---- captions ----

TEST_F(SectionBar, CaptionIsTheSectionsNameWithItsBlanks) {
    for (int section = 0; section < MAX_SECTIONS; ++section)
        EXPECT_EQ(Caption(section), Name(section)) << section;
    EXPECT_EQ(Caption(SECTION_PAGE_HEADER).find("Page Header"), Name(0).find("Page Header"));
}

TEST_F(SectionBar, SortHeaderAndItsFooterNameTheFieldThatSorts) {
    SortBy(SECTION_SORT_HEADER_1, "Region");
    SortBy(SECTION_SORT_HEADER_1 + 1, "City");
    EXPECT_EQ(Caption(2), Name(2) + " (Region)");
    EXPECT_EQ(Caption(3), Name(3) + " (City)");
    EXPECT_EQ(Caption(27), Name(27) + " (City)");
    EXPECT_EQ(Caption(28), Name(28) + " (Region)");
    for (const int other : {0, 1, 4, 10, 11, 19, 20, 26, 29, 30})
        EXPECT_EQ(Caption(other), Name(other)) << other;
}

TEST_F(SectionBar, FieldWithoutACaptionLeavesItsBracketsEmpty) {
    SortBy(SECTION_SORT_HEADER_1, "");
    EXPECT_EQ(Caption(2), Name(2) + " ()");
}

TEST_F(SectionBar, RowsThatAHostHasSpoiledNameNoField) {
    SortBy(SECTION_SORT_HEADER_1, "Region");
    session->form.Breaks[0].SortField = 499;
    EXPECT_EQ(Caption(2), Name(2));
    session->form.Breaks[0].SortField = -1;
    EXPECT_EQ(Caption(2), Name(2));
    session->form.Breaks[0] = {1, 1, SECTION_DETAIL_1};
    EXPECT_EQ(Caption(SECTION_DETAIL_1), Name(SECTION_DETAIL_1));
    EXPECT_EQ(Caption(-1), "");
    EXPECT_EQ(Caption(MAX_SECTIONS), "");
}

TEST_F(SectionBar, CaptionIsCentredOnItsPanelInTheRulersFont) {
    Painted();
    EXPECT_EQ(calls.Take(), Lines{"draw 62,101,464,141 as 5: " + Name(0)});
    EXPECT_EQ(LinesWith(Painted(), {"color", "on", "mode", "text"}),
              (Lines{"color 000000", "on color FFFFFF", "mode 2", "text 62,101 " + Name(0)}));
}

TEST_F(SectionBar, OneFontServesItsCaptionAndBothRulersAndIsGivenUp) {
    session->form.Header.RulerFlags = RULER_CENTIMETRES | RULER_SHOWN;
    EXPECT_EQ(LinesWith(Painted(), {"text", "select font", "delete font"}),
              (Lines{"select font -32 Arial", "text 62,101 " + Name(0), "text 20,120 0",
                     "text 20,220 1", "text 497,120 0", "text 497,220 1", "select font 16 System",
                     "delete font -32 Arial"}));
}

// ---- the band ----

TEST_F(SectionBar, BarWithoutAnOutlineHasASolidFrameClockwise) {
    const Lines drawn = Painted();
    EXPECT_EQ(Lines(drawn.begin(), drawn.begin() + 6),
              (Lines{"select pen 0 1 000000", "move 62,100", "line 462,100", "line 462,280",
                     "line 62,280", "line 62,100"}));
}

TEST_F(SectionBar, OutlineOfItsOwnTakesThePlaceOfTheFrame) {
    Last().OutlineSides = SIDE_BOTTOM;
    Last().OutlineColor = 0x0000FF;
    const Lines drawn = Painted();
    EXPECT_EQ(
        Lines(drawn.begin(), drawn.begin() + 4),
        (Lines{"select pen 0 0 0000FF", "move 462,280", "line 62,280", "select pen 0 1 000000"}));
    EXPECT_EQ(LinesWith(drawn, {"move 62,100"}), Lines{});
}

TEST_F(SectionBar, PanelHasABevelFromItsBottomLeftCorner) {
    const Lines drawn = DrawingBy([this](HDC device) {
        RaisedPanel(device, {100, 200, 300, 260}, session->device.SolidPen);
    });
    const auto brush = [](int color) {
        char text[40];
        const DWORD value = GetSysColor(color);
        std::snprintf(text, sizeof text, "%06lX", value);
        return std::string(text);
    };
    const std::string face = brush(COLOR_BTNFACE);
    const std::string shadow = brush(COLOR_BTNSHADOW);
    EXPECT_EQ(drawn, (Lines{"select pen 0 1 000000", "select brush 0 " + face + " 0",
                            "rectangle 100,200 300,260", "select brush 0 FFFFFF 0",
                            "select pen 0 1 000000", "delete pen 0 1 000000",
                            "select pen 0 1 FFFFFF", "move 102,256", "line 102,202", "line 296,202",
                            "select pen 0 1 000000", "delete pen 0 1 FFFFFF",
                            "select pen 0 1 " + shadow, "move 102,256", "line 296,256",
                            "line 296,202", "select pen 0 1 000000", "delete pen 0 1 " + shadow}));
}

TEST_F(SectionBar, PanelWithoutPensIsItsFace) {
    const FailingCall none("CreatePen", CreatePen, nullptr, 1, EVERY_CALL);
    const Lines drawn = Painted();
    EXPECT_EQ(LinesWith(drawn, {"rectangle"}).size(), 3U);
    EXPECT_EQ(Strokes(drawn).size(), 5U); // the frame
}

TEST_F(SectionBar, RulersStandInTheMarginsThatAreOnView) {
    const std::string caption = "rectangle 62,101 464,141";
    const std::string left = "rectangle -1,101 63,281";
    const std::string right = "rectangle 462,101 524,281";
    EXPECT_EQ(Panels(), (Lines{caption, left, right}));
    session->view.OriginX = 62;
    EXPECT_EQ(Panels(), (Lines{caption, right}));
    session->view.OriginX = 61;
    session->view.ViewWidth = 401;
    EXPECT_EQ(Panels(), (Lines{caption, left}));
    session->view.ViewWidth = 402;
    EXPECT_EQ(Panels(), (Lines{caption, left, right}));
}

TEST_F(SectionBar, BarWhollyRightOfTheViewPaintsNothingOfItsCaptionAndRulers) {
    session->view.ViewWidth = 63;
    EXPECT_FALSE(Panels().empty());
    session->view.ViewWidth = 62;
    EXPECT_TRUE(Panels().empty());
    EXPECT_FALSE(Painted().empty()); // its frame touches the view
    session->view.ViewWidth = 61;
    EXPECT_TRUE(Painted().empty());
}

TEST_F(SectionBar, BarWhollyLeftOfTheViewPaintsNothingOfItsCaptionAndRulers) {
    session->view.OriginX = 461;
    EXPECT_FALSE(Panels().empty());
    session->view.OriginX = 462;
    EXPECT_TRUE(Panels().empty());
}

// ---- the font ----

TEST_F(SectionBar, FontThatCannotBeDeletedIsReportedAndPaintingGoesOn) {
    MessageBoxes boxes;
    const HDC device = CreateCompatibleDC(nullptr);
    HFONT font = nullptr;
    {
        const FailingCall none("DeleteObject", DeleteObject, FALSE, 1, EVERY_CALL);
        const RulerFont made(device);
        font = static_cast<HFONT>(GetCurrentObject(device, OBJ_FONT));
    }
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"", "failed to delete font", {IDOK}}}));
    EXPECT_NE(GetCurrentObject(device, OBJ_FONT), font);
    EXPECT_TRUE(DeleteObject(font));
    DeleteDC(device);
}

TEST_F(SectionBar, BarWhoseFontStaysIsPaintedAllTheSame) {
    MessageBoxes boxes;
    // The nine pens of three panels go first.
    const FailingCall none("DeleteObject", DeleteObject, FALSE, 10, 1);
    EXPECT_EQ(Panels().size(), 3U);
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"failed to delete font"});
}
