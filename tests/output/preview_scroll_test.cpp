#include "tests/support/failing_call.h"
#include "tests/support/preview_run.h"

namespace {

constexpr int NEVER = 0; // of a call that is counted and not failed

// Scrolling by commands, bars and thumbs.
class PreviewScroll : public PreviewRun {
protected:
    int OriginX() const { return session->view.OriginX; }
    int OriginY() const { return session->view.OriginY; }
    int Height() const { return session->view.ViewHeight; }
    int Width() const { return session->view.ViewWidth; }
    int VerticalPosition(int finished) const {
        const int page_bottom = session->report.PageBottomUnits;
        return (session->pages.ShownPageIndex * page_bottom + OriginY()) * 100 /
               (finished * page_bottom);
    }
};

struct Step {
    UINT message;
    WPARAM argument;
};

} // namespace

TEST_F(PreviewScroll, NothingScrollsBeforeThePageIsFinished) {
    ASSERT_EQ(Feed(3), 0);
    const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
    for (const int command : {COMMAND_PAGE_UP, COMMAND_PAGE_DOWN, COMMAND_LINE_UP,
                              COMMAND_LINE_DOWN, COMMAND_LEFT, COMMAND_RIGHT})
        Command(command);
    for (const int code : {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN}) {
        Scroll(WM_VSCROLL, code);
        Scroll(WM_HSCROLL, code);
    }
    EXPECT_EQ(OriginX(), 0);
    EXPECT_EQ(OriginY(), 0);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(copies.Seen(), 0);
}

TEST_F(PreviewScroll, ThumbBeforeAnyPageIsFinishedDoesNothing) {
    ASSERT_EQ(Feed(3), 0);
    for (const int position : {0, 50, 100}) Scroll(WM_VSCROLL, SB_THUMBTRACK, position);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(session->pages.ShownPage, nullptr);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewScroll, CommandsAndBarCodesScrollDownAndUpByTheirSteps) {
    Finish(7);
    const int line = Height() / 20;
    const Step down[] = {{WM_COMMAND, COMMAND_PAGE_DOWN},
                         {WM_COMMAND, COMMAND_LINE_DOWN},
                         {WM_VSCROLL, SB_PAGEDOWN},
                         {WM_VSCROLL, SB_LINEDOWN}};
    const Step up[] = {{WM_COMMAND, COMMAND_PAGE_UP},
                       {WM_COMMAND, COMMAND_LINE_UP},
                       {WM_VSCROLL, SB_PAGEUP},
                       {WM_VSCROLL, SB_LINEUP}};
    for (int row = 0; row < 4; ++row) {
        const int step = row % 2 ? line : Height();
        Send(down[row].message, down[row].argument);
        EXPECT_EQ(OriginY(), step) << row;
        EXPECT_EQ(ScrollPosition(SB_VERT), VerticalPosition(2)) << row;
        Send(up[row].message, up[row].argument);
        EXPECT_EQ(OriginY(), 0) << row;
        EXPECT_EQ(ScrollPosition(SB_VERT), 0) << row;
    }
}

TEST_F(PreviewScroll, CommandsAndBarCodesScrollToTheRightAndBackByTheirSteps) {
    Finish(1);
    const int column = Width() / 10;
    const Step right[] = {
        {WM_COMMAND, COMMAND_RIGHT}, {WM_HSCROLL, SB_LINERIGHT}, {WM_HSCROLL, SB_PAGERIGHT}};
    const Step left[] = {
        {WM_COMMAND, COMMAND_LEFT}, {WM_HSCROLL, SB_LINELEFT}, {WM_HSCROLL, SB_PAGELEFT}};
    ASSERT_GT(session->report.PageWidthUnits, Width());
    for (int row = 0; row < 3; ++row) {
        Send(right[row].message, right[row].argument);
        EXPECT_EQ(OriginX(), row == 2 ? Width() : column) << row;
        EXPECT_EQ(ScrollPosition(SB_HORZ), OriginX() * 100 / session->report.PageWidthUnits) << row;
        Send(left[row].message, left[row].argument);
        EXPECT_EQ(OriginX(), 0) << row;
        EXPECT_EQ(ScrollPosition(SB_HORZ), 0) << row;
    }
}

TEST_F(PreviewScroll, ToTheRightItEndsBehindThePagesEdgeAndTheBarAtItsEnd) {
    Finish(1);
    for (int step = 0; step < 10; ++step) Scroll(WM_HSCROLL, SB_PAGERIGHT);
    const int steps = (session->report.PageWidthUnits + Width() - 1) / Width();
    EXPECT_EQ(OriginX(), steps * Width());
    EXPECT_GE(OriginX(), session->report.PageWidthUnits);
    EXPECT_EQ(ScrollPosition(SB_HORZ), 100);
    Command(COMMAND_LEFT);
    EXPECT_EQ(OriginX(), steps * Width() - Width() / 10);
}

TEST_F(PreviewScroll, ToTheLeftItStopsAtTheEdge) {
    Finish(1);
    Command(COMMAND_RIGHT);
    Scroll(WM_HSCROLL, SB_PAGELEFT);
    EXPECT_EQ(OriginX(), 0);
    const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
    Command(COMMAND_LEFT);
    EXPECT_EQ(copies.Seen(), 0);
}

TEST_F(PreviewScroll, HorizontalThumbGoesToItsPartOfTheWidth) {
    Finish(1);
    Scroll(WM_HSCROLL, SB_THUMBTRACK, 37);
    EXPECT_EQ(OriginX(), 37 * session->report.PageWidthUnits / 100);
    EXPECT_EQ(ScrollPosition(SB_HORZ), OriginX() * 100 / session->report.PageWidthUnits);
}

TEST_F(PreviewScroll, HorizontalBarRestsWhereTheWholeWidthIsInView) {
    Finish(1);
    session->report.PageWidthUnits = Width();
    session->view.OriginX = 300;
    Send(WM_PAINT, 0);
    EXPECT_EQ(ScrollPosition(SB_HORZ), 0);
}

TEST_F(PreviewScroll, VerticalThumbIsFollowedWhileItMovesAndSpansTheWholeReport) {
    Finish(20);
    Command(COMMAND_LINE_DOWN);
    for (const auto &[position, page] : std::vector<std::pair<int, int>>{
             {50, 3}, {24, 1}, {25, 2}, {74, 3}, {75, 4}, {99, 4}, {100, 4}, {30000, 4}}) {
        Scroll(WM_VSCROLL, SB_THUMBTRACK, position);
        EXPECT_EQ(Page(), page) << position;
        EXPECT_EQ(OriginY(), 0);
        EXPECT_EQ(ScrollPosition(SB_VERT), (page - 1) * 25);
    }
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 0x8000); // no place of a bar
    EXPECT_EQ(Page(), 1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PreviewScroll, ThumbOnTheShownPageLeavesItsPlace) {
    Finish(20);
    Command(COMMAND_LINE_DOWN);
    const int origin = OriginY();
    const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 10);
    EXPECT_EQ(OriginY(), origin);
    EXPECT_EQ(copies.Seen(), 0);
}

TEST_F(PreviewScroll, EndOfADragAndOtherCodesAreIgnored) {
    Finish(20);
    for (const int code : {SB_THUMBPOSITION, SB_TOP, SB_BOTTOM, SB_ENDSCROLL}) {
        Scroll(WM_VSCROLL, code, 80);
        Scroll(WM_HSCROLL, code, 80);
    }
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(OriginX(), 0);
    EXPECT_EQ(OriginY(), 0);
}

TEST_F(PreviewScroll, ScrollingRunsOnAcrossPageEnds) {
    Finish(15);
    int steps = 0;
    while (Page() == 1 && steps++ < 20) Command(COMMAND_PAGE_DOWN);
    EXPECT_EQ(Page(), 2);
    EXPECT_EQ(OriginY(), 0);
    Command(COMMAND_PAGE_UP);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(OriginY(), session->report.PageBottomUnits - (Height() - session->device.FontHeight));
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 50);
    ASSERT_EQ(Page(), 2);
    Command(COMMAND_LINE_UP);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(OriginY(),
              session->report.PageBottomUnits - (Height() / 20 - session->device.FontHeight));
}

TEST_F(PreviewScroll, LineStepsReachEveryPlaceUpToThePagesEnd) {
    Finish(6);
    const int line = Height() / 20;
    while (Page() == 1) {
        const int before = OriginY();
        Command(COMMAND_LINE_DOWN);
        if (Page() == 1)
            EXPECT_EQ(OriginY(), before + line);
        else
            EXPECT_GE(before + line, session->report.PageBottomUnits);
    }
}

TEST_F(PreviewScroll, BottomOfTheLastFinishedPageIsTheEndWithoutARepaint) {
    Finish(5);
    for (int step = 0; step < 20; ++step) Command(COMMAND_PAGE_DOWN);
    const int origin = OriginY();
    const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
    Command(COMMAND_PAGE_DOWN);
    EXPECT_EQ(OriginY(), origin);
    EXPECT_EQ(Page(), 1);
    EXPECT_EQ(copies.Seen(), 0);
}

TEST_F(PreviewScroll, TopOfTheFirstPageIsTheEndWithoutARepaint) {
    Finish(5);
    const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
    Command(COMMAND_PAGE_UP);
    Command(COMMAND_LINE_UP);
    EXPECT_EQ(OriginY(), 0);
    EXPECT_EQ(copies.Seen(), 0);
}

TEST_F(PreviewScroll, OnlyPageScrollsDownAndUpAgain) {
    Finish(5);
    Command(COMMAND_PAGE_DOWN);
    EXPECT_EQ(OriginY(), Height());
    Command(COMMAND_PAGE_UP);
    EXPECT_EQ(OriginY(), 0);
}

TEST_F(PreviewScroll, FittedPagesTurnWholeAndDoNotMoveSideways) {
    Finish(15);
    Command(COMMAND_RIGHT);
    Command(COMMAND_FIT);
    EXPECT_EQ(session->preview.FitPage, 1u);
    EXPECT_EQ(OriginX(), 0);
    EXPECT_EQ(MenuText(COMMAND_FIT), "&Zoom");
    for (const int command : {COMMAND_LEFT, COMMAND_RIGHT}) Command(command);
    for (const int code : {SB_LINERIGHT, SB_PAGERIGHT}) Scroll(WM_HSCROLL, code);
    EXPECT_EQ(OriginX(), 0);
    const Step down[] = {{WM_COMMAND, COMMAND_PAGE_DOWN}, {WM_VSCROLL, SB_LINEDOWN}};
    const Step up[] = {{WM_COMMAND, COMMAND_LINE_UP}, {WM_VSCROLL, SB_PAGEUP}};
    for (int step = 0; step < 2; ++step) {
        Send(down[step].message, down[step].argument);
        EXPECT_EQ(Page(), step + 2);
    }
    for (int step = 0; step < 2; ++step) {
        Send(up[step].message, up[step].argument);
        EXPECT_EQ(Page(), 2 - step);
        EXPECT_EQ(OriginY(), 0);
    }
    Command(COMMAND_FIT);
    EXPECT_EQ(session->preview.FitPage, 0u);
    EXPECT_EQ(MenuText(COMMAND_FIT), "Pre&view");
}

TEST_F(PreviewScroll, HorizontalThumbLeavesAFittedPageInItsPlace) {
    Finish(2);
    Command(COMMAND_FIT);
    Scroll(WM_HSCROLL, SB_THUMBTRACK, 37);
    EXPECT_EQ(OriginX(), 0);
    EXPECT_EQ(ScrollPosition(SB_HORZ), 0);
}

TEST_F(PreviewScroll, BarShowsThePlaceInTheFinishedPagesWhileTheRunGoesOn) {
    ASSERT_EQ(Feed(21), 0); // four pages finished
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 50);
    EXPECT_EQ(Page(), 3);
    EXPECT_EQ(ScrollPosition(SB_VERT), 50);
    ASSERT_EQ(Feed(20), 0); // eight
    Send(WM_PAINT, 0);
    EXPECT_EQ(ScrollPosition(SB_VERT), 25);
}

TEST_F(PreviewScroll, BarIsSetOnlyWhenItMoves) {
    Finish(20);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 50);
    const FailingCall set("SetScrollPos", SetScrollPos, 0, 1, NEVER);
    Send(WM_PAINT, 0);
    EXPECT_EQ(set.Seen(), 0);
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 75);
    EXPECT_EQ(set.Seen(), 1);
}
