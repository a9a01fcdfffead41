#include "device/margins.h"

#include <gtest/gtest.h>

#include "frame/host_data.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

constexpr const char *MARGIN_WARNING =
    "One or more items extend beyond the margins and may be truncated when printed. Any items that "
    "extend beyond the margins should be repositioned.";
constexpr const char *LABEL_WARNING =
    "One or more items extend outside of the label and may be truncated when printed. Any items "
    "that extend outside of the label should be repositioned.";

// A bar at 125 and 0, paper of 2125 units with margins of half an inch, a height of 300 units.
class Margins : public testing::Test {
protected:
    Margins() {
        session->form.Header.LeftMargin = session->form.Header.RightMargin = 0.5F;
        session->printer.ReportWidth = 2125;
        session->form.ReportHeight = 300;
        Add(ITEM_BAR, 125, 0, 1875, 90);
    }
    ItemRecord *Add(int type, int x, int y, int width, int height) {
        ItemRecord *item = &session->form.Items[session->form.TotalItems++];
        item->ItemType = static_cast<uint16_t>(type);
        item->x = static_cast<int16_t>(x);
        item->y = static_cast<int16_t>(y);
        item->width = static_cast<int16_t>(width);
        item->height = static_cast<int16_t>(height);
        return item;
    }
    // The row that offends when this item stands in row 1.
    int Row(int x, int y, int width, int height, int type = ITEM_LABEL) {
        session->form.TotalItems = 1;
        Add(type, x, y, width, height);
        return ValidateMargins(session, 0);
    }
    MessageBoxes boxes;
    BareSession session;
};

} // namespace

TEST_F(Margins, ItemOneUnitPastTheRightBoundOffends) {
    const int right = 125 + 2125 - 250 - 1;
    EXPECT_EQ(Row(right - 100, 50, 100, 40), 0);
    EXPECT_EQ(Row(right - 100, 50, 101, 40), 1);
}

TEST_F(Margins, ItemLeftOfTheBarOffends) {
    EXPECT_EQ(Row(125, 50, 100, 40), 0);
    EXPECT_EQ(Row(124, 50, 100, 40), 1);
}

TEST_F(Margins, ItemBelowTheReportOffendsAndOneAboveItsTopDoesNot) {
    EXPECT_EQ(Row(200, 260, 100, 40), 0);
    EXPECT_EQ(Row(200, 260, 100, 41), 1);
    EXPECT_EQ(Row(200, -500, 100, 40), 0);
}

TEST_F(Margins, BarsLinesAndTheGroupItemAreLeftOut) {
    for (const int type : {ITEM_BAR, ITEM_GROUP, ITEM_LINE})
        EXPECT_EQ(Row(0, 0, 5000, 5000, type), 0) << type;
    for (const int type : {ITEM_LABEL, ITEM_FIELD, ITEM_PICTURE})
        EXPECT_EQ(Row(0, 0, 5000, 5000, type), 1) << type;
}

TEST_F(Margins, FirstOffenderInTableOrderIsTold) {
    Add(ITEM_LABEL, 200, 50, 100, 40);
    Add(ITEM_LABEL, 100, 50, 100, 40);
    Add(ITEM_LABEL, 90, 50, 100, 40);
    EXPECT_EQ(ValidateMargins(session, 1), 2);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"Warning", MARGIN_WARNING, {IDOK}}}));
}

TEST_F(Margins, NothingIsShownWithoutTheWish) {
    EXPECT_EQ(Row(0, 50, 100, 40), 1);
    EXPECT_EQ(Row(200, 50, 100, 40), 0);
    EXPECT_EQ(ValidateMargins(session, 1), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Margins, LabelIsBoundedByItsBar) {
    session->LabelMode = 1;
    EXPECT_EQ(Row(1900, 50, 100, 40), 0);
    EXPECT_EQ(Row(1900, 50, 101, 40), 1);
    EXPECT_EQ(Row(200, 50, 100, 41), 1);
    EXPECT_EQ(ValidateMargins(session, 1), 1);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"Warning", LABEL_WARNING, {IDOK}}}));
}

TEST_F(Margins, WindowOfTheSessionIsPaintedAnewBehindTheWarning) {
    HostWindow own;
    ShowWindow(own.Get(), SW_SHOW);
    ValidateRect(own.Get(), nullptr);
    session->Window = own.Get();
    session->view.PaintEnabled = 1;
    EXPECT_EQ(Row(200, 50, 100, 40), 0);
    EXPECT_FALSE(GetUpdateRect(own.Get(), nullptr, FALSE));
    EXPECT_EQ(Row(0, 50, 100, 40), 1);
    EXPECT_TRUE(GetUpdateRect(own.Get(), nullptr, FALSE));
    session->Window = nullptr;
}
