// What part of a page the viewer shows.
#include <gtest/gtest.h>

#include "host/view/page_view.h"

namespace {

constexpr PaperSize LETTER{8.5, 11.0};

// Letter at 100 pixels an inch: a sheet of 850 by 1100, 874 by 1124 with its margins.
class View : public testing::Test {
protected:
    View() {
        view.Resize({600, 500});
        view.SetZoom(1.0, {0, 0});
        view.GoTo(1);
    }
    PageView view{LETTER, 4, 100.0};
};

int Top(const PageView &view) { return static_cast<int>(view.Sheet().top); }

} // namespace

TEST_F(View, WholePageIsFittedAtFirst) {
    PageView fresh(LETTER, 1, 100.0);
    fresh.Resize({2000, 574});
    EXPECT_EQ(fresh.Fitting(), Fit::PAGE);
    EXPECT_DOUBLE_EQ(fresh.Zoom(), 0.5);
    const RECT sheet = fresh.Sheet();
    EXPECT_EQ(sheet.bottom - sheet.top, 550);
    EXPECT_EQ(sheet.right - sheet.left, 425);
    EXPECT_EQ(sheet.top, 12);
    EXPECT_EQ(sheet.left, (2000 - 425) / 2); // centred
}

TEST_F(View, FitOfTheWidthFollowsTheWindow) {
    view.SetFit(Fit::WIDTH);
    EXPECT_DOUBLE_EQ(view.Zoom(), (600 - 24) / 850.0);
    view.Resize({874, 500});
    EXPECT_DOUBLE_EQ(view.Zoom(), 1.0);
}

TEST_F(View, ScrollingDownRunsOnToTheNextPage) {
    view.ScrollBy(0, 600);
    EXPECT_EQ(Top(view), 12 - 600);
    view.ScrollBy(0, 600); // 24 are left
    EXPECT_EQ(Top(view), 12 - 624);
    EXPECT_EQ(view.Page(), 1);
    view.ScrollBy(0, 600);
    EXPECT_EQ(view.Page(), 2);
    EXPECT_EQ(Top(view), 12);
}

TEST_F(View, ScrollingUpFromTheTopShowsTheEndOfThePageBefore) {
    view.GoTo(2);
    view.ScrollBy(0, -40);
    EXPECT_EQ(view.Page(), 1);
    EXPECT_EQ(Top(view), 12 - 624);
}

TEST_F(View, ReportEndsWhereItsPagesEnd) {
    view.ScrollBy(0, -40);
    EXPECT_EQ(view.Page(), 1);
    EXPECT_EQ(Top(view), 12);
    view.GoTo(4);
    view.ScrollBy(0, 10000);
    view.ScrollBy(0, 10000);
    EXPECT_EQ(view.Page(), 4);
    EXPECT_EQ(Top(view), 12 - 624);
}

TEST_F(View, TurnKeepsALineInView) {
    view.Turn(1);
    EXPECT_EQ(Top(view), 12 - (500 - 40));
    view.Turn(-1);
    EXPECT_EQ(Top(view), 12);
}

TEST_F(View, PagesAreForcedIntoTheReport) {
    view.GoTo(9);
    EXPECT_EQ(view.Page(), 4);
    view.GoTo(-3);
    EXPECT_EQ(view.Page(), 1);
}

TEST_F(View, ZoomKeepsWhatIsUnderThePointer) {
    const POINT at{300, 250};
    const RECT before = view.Sheet();
    const double inch = (at.y - before.top) / view.PixelsPerInch();
    view.SetZoom(2.0, at);
    EXPECT_NEAR((at.y - view.Sheet().top) / view.PixelsPerInch(), inch, 0.01);
    EXPECT_EQ(view.Fitting(), Fit::NONE);
}

TEST_F(View, ZoomGoesByUsualStepsAndStopsAtItsEnds) {
    view.StepZoom(1);
    EXPECT_DOUBLE_EQ(view.Zoom(), 1.25);
    view.StepZoom(-1);
    view.StepZoom(-1);
    EXPECT_DOUBLE_EQ(view.Zoom(), 0.75);
    for (int step = 0; step < 30; ++step) view.StepZoom(-1);
    EXPECT_DOUBLE_EQ(view.Zoom(), PageView::ZOOM_LEAST);
    for (int step = 0; step < 30; ++step) view.StepZoom(1);
    EXPECT_DOUBLE_EQ(view.Zoom(), PageView::ZOOM_MOST);
}

TEST_F(View, VerticalBarRunsThroughTheWholeReport) {
    EXPECT_EQ(view.Vertical().nMax, 4 * 1124 - 1);
    EXPECT_EQ(view.Vertical().nPage, 500u);
    view.GoTo(3);
    EXPECT_EQ(view.Vertical().nPos, 2 * 1124);
    view.ScrollToVertical(1124 + 100);
    EXPECT_EQ(view.Page(), 2);
    EXPECT_EQ(Top(view), 12 - 100);
    view.ScrollToVertical(4 * 1124 - 500);
    EXPECT_EQ(view.Page(), 4);
    EXPECT_EQ(Top(view), 12 - 624);
}

TEST_F(View, HorizontalBarRunsThroughTheSheet) {
    EXPECT_EQ(view.Horizontal().nMax, 873);
    view.ScrollToHorizontal(100);
    EXPECT_EQ(view.Sheet().left, 12 - 100);
    view.ScrollToHorizontal(1000);
    EXPECT_EQ(view.Sheet().left, 12 - 274);
}

TEST_F(View, TinyWindowsAreServed) {
    view.SetFit(Fit::PAGE);
    view.Resize({0, 0});
    EXPECT_DOUBLE_EQ(view.Zoom(), PageView::ZOOM_LEAST);
    view.Turn(1);
    EXPECT_GE(view.Page(), 1);
}
