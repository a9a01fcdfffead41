// The frames of labels.
#include "run/label_frame.h"
#include "run/sections.h"
#include "tests/support/composition.h"

using tessarine::PrintLabelFrame;

namespace {

using Lines = std::vector<std::string>;

// A bar of a label of 2 by 1 inches on a sheet with margins of a tenth of an inch; its pitch is
// larger than the label.
class LabelFrame : public Composition {
protected:
    LabelFrame() {
        session->LabelMode = 1;
        FormHeader &header = session->form.Header;
        header.LeftMargin = header.TopMargin = 0.1F;
        header.LabelGeometry.LabelWidth = 2.0F;
        header.LabelGeometry.LabelHeight = 1.0F;
        Section(SECTION_DETAIL_1, 300);
        bar = &session->form.Items[0];
        bar->x = 3;
        run.CurrentX = 100;
        run.CurrentY = 200;
    }

    Lines Frame(uint32_t outline) {
        PrintLabelFrame(session, 0, outline);
        return Drawing();
    }

    ItemRecord *bar;
    const std::string frame = "round 78,175 578,425 by 62,62";
};

} // namespace

TEST_F(LabelFrame, PlainLabelHasNone) { EXPECT_TRUE(Frame(0).empty()); }

TEST_F(LabelFrame, WantedFrameIsDrawnInThePenAndBrushInForce) {
    EXPECT_EQ(Frame(1), (Lines{frame}));
}

TEST_F(LabelFrame, MovesWithTheOffsetOfItsBar) {
    bar->RunOffset = 7;
    EXPECT_EQ(Frame(1), (Lines{"round 78,182 578,432 by 62,62"}));
}

TEST_F(LabelFrame, BackgroundIsFilledWithoutAPen) {
    bar->ItemFlags |= FLAG_BACKGROUND;
    bar->Background = {BS_SOLID, 0x0000FF, 0};
    // The system has one null pen, black and never deleted, for all that ask.
    EXPECT_EQ(Frame(0), (Lines{"select pen 5 1 000000", "mode 1", "select brush 0 0000FF 0", frame,
                               "select brush 0 FFFFFF 0", "delete brush 0 0000FF 0",
                               "select pen 0 0 000000"}));
}

TEST_F(LabelFrame, WantedFrameOfABackgroundKeepsThePenInForce) {
    bar->ItemFlags |= FLAG_BACKGROUND;
    bar->Background = {BS_HATCHED, 0x0000FF, HS_CROSS};
    EXPECT_EQ(Frame(1),
              (Lines{"mode 1", "select brush 2 0000FF 4", frame, "select brush 0 FFFFFF 0",
                     "delete brush 2 0000FF 4", "select pen 0 0 000000"}));
}

TEST_F(LabelFrame, BackgroundWhoseBrushCannotBeMadeKeepsTheBrushInForce) {
    bar->ItemFlags |= FLAG_BACKGROUND;
    bar->Background = {BS_DIBPATTERNPT, 0x0000FF, 4660};
    EXPECT_EQ(Frame(0), (Lines{"select pen 5 1 000000", "mode 1", frame, "select brush 0 FFFFFF 0",
                               "select pen 0 0 000000"}));
}

TEST_F(LabelFrame, OutlineTakesTheLabelsSizeWithoutTheMargin) {
    bar->OutlineSides = SIDE_LEFT | SIDE_BOTTOM;
    bar->OutlineWidth = 3;
    EXPECT_EQ(LinesWith(Frame(0), {"move", "line"}),
              (Lines{"move 103,425", "line 103,175", "move 603,425", "line 103,425"}));
}

TEST_F(LabelFrame, OutlineLiesOverTheBackground) {
    bar->ItemFlags |= FLAG_BACKGROUND;
    bar->OutlineSides = SIDE_TOP;
    EXPECT_EQ(LinesWith(Frame(0), {"move", "line", "round"}),
              (Lines{frame, "move 103,175", "line 603,175"}));
}

TEST_F(LabelFrame, WantedFrameReplacesTheOutline) {
    bar->OutlineSides = SIDE_TOP;
    EXPECT_EQ(Frame(1), (Lines{frame}));
}

TEST_F(LabelFrame, BarKeepsItsPitch) {
    Frame(1);
    EXPECT_EQ(bar->width, 500);
    EXPECT_EQ(bar->height, 301);
}

TEST_F(LabelFrame, PrinterRunHasNoRecordingAndDrawsNone) {
    const HDC recorder = session->pages.PageRecorder;
    session->pages.PageRecorder = nullptr;
    bar->ItemFlags |= FLAG_BACKGROUND;
    bar->OutlineSides = SIDE_TOP;
    PrintLabelFrame(session, 0, 0);
    PrintLabelFrame(session, 0, 1);
    EXPECT_EQ(bar->width, 500);
    session->pages.PageRecorder = recorder;
    EXPECT_TRUE(Drawing().empty());
}

TEST_F(LabelFrame, IsDrawnForTheBarOfALabelWithTheWishOfTheHost) {
    tessarine::PrintSection(session, SECTION_DETAIL_1, 1);
    EXPECT_EQ(LinesWith(Drawing(), {"round"}).size(), 1U);
    session->LabelMode = 0;
    tessarine::PrintSection(session, SECTION_DETAIL_1, 1);
    EXPECT_TRUE(Drawing().empty());
}
