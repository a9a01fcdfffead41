#include "designer/limits.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

constexpr int CAPTION = 40;
constexpr int BAR_X = 125; // of SessionForm's bars
constexpr int BAR_WIDTH = 1875;

class Limits : public testing::Test {
protected:
    Limits() {
        session->form.Header.BarHeight = CAPTION;
        session->form.Header.LeftMargin = 0.5F;
        session->form.Header.RightMargin = 0.507F; // .507 of an inch is no whole number of units
        session->printer.ReportWidth = 2125;
        session->form.ReportHeight = 900;
        form.Section(SECTION_PAGE_HEADER, 100);
        form.Section(SECTION_REPORT_HEADER, 200);
        form.Section(SECTION_DETAIL_1, 300);
        session->form.Items[0].y = 10;
    }

    BareSession session;
    SessionForm form{session};
};

} // namespace

TEST_F(Limits, ReportFormEndsWithItsMarginsAndSections) {
    const int right = BAR_X + 1 + 2125 - 251 - 1;
    EXPECT_EQ(EdgesOf(FormLimits(session)), (Edges{BAR_X + 1, 10 + CAPTION, right, 10 + 900}));
}

TEST_F(Limits, LabelFormEndsWithItsBar) {
    session->LabelMode = 1;
    EXPECT_EQ(EdgesOf(FormLimits(session)),
              (Edges{BAR_X + 1, 10 + CAPTION, BAR_X + BAR_WIDTH, 10 + 100 + CAPTION}));
}

TEST_F(Limits, PageIsItsPrintableHeight) {
    session->printer.UsableHeight = 10.003F;
    EXPECT_EQ(PageLimit(session), 2500);
}

TEST_F(Limits, SectionsThatShareAPageShareItsHeight) {
    session->printer.UsableHeight = 10;
    const struct {
        int section, most;
    } cases[] = {{SECTION_PAGE_HEADER, 2500 - 340 - 240}, {SECTION_REPORT_HEADER, 2500 - 140},
                 {SECTION_SORT_HEADER_1, INT_MAX},        {SECTION_SORT_HEADER_9, INT_MAX},
                 {SECTION_DETAIL_1, 2500 - 140 - 240},    {SECTION_DETAIL_9, 2500 - 140 - 240},
                 {SECTION_SORT_FOOTER_9, INT_MAX},        {SECTION_REPORT_FOOTER, INT_MAX},
                 {SECTION_PAGE_FOOTER, INT_MAX}};
    for (const auto &c : cases) EXPECT_EQ(MostBarHeight(session, c.section), c.most) << c.section;
}

TEST_F(Limits, SectionThatIsNotInTheFormTakesNoHeight) {
    BareSession other;
    SessionForm(other).Section(SECTION_DETAIL_1, 300);
    other->printer.UsableHeight = 10;
    EXPECT_EQ(MostBarHeight(other, SECTION_DETAIL_1), 2500);
}

TEST_F(Limits, ItemLiesOutsideByThePapersWholeWidth) {
    const RECT inside = {BAR_X, 10 + CAPTION, BAR_X + 2125, 910};
    EXPECT_FALSE(LiesOutside(session, inside));
    EXPECT_TRUE(LiesOutside(session, {inside.left - 1, inside.top, 300, 200}));
    EXPECT_TRUE(LiesOutside(session, {inside.left, inside.top - 1, 300, 200}));
    EXPECT_TRUE(LiesOutside(session, {300, 200, inside.right + 1, 300}));
    EXPECT_TRUE(LiesOutside(session, {300, 200, 400, inside.bottom + 1}));
}

TEST_F(Limits, ItemLiesOutsideALabelBehindItsBar) {
    session->LabelMode = 1;
    const RECT inside = {BAR_X, 10 + CAPTION, BAR_X + BAR_WIDTH, 10 + 100 + CAPTION};
    EXPECT_FALSE(LiesOutside(session, inside));
    EXPECT_TRUE(LiesOutside(session, {300, 60, inside.right + 1, 90}));
    EXPECT_TRUE(LiesOutside(session, {300, 60, 400, inside.bottom + 1}));
}
