#include "designer/scrolling.h"

#include <cstring>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/keys.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

class ScrolledDesigner : public DesignerSession {
protected:
    void SetUp() override {
        params.WindowWidth = params.WindowHeight = 300;
        ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText();
        line = static_cast<int>(session->form.Fonts[0].Height);
        width = session->printer.ReportWidth;
        height = session->form.ReportHeight;
    }
    void Across(int code, int position = 0) const { Scroll(WM_HSCROLL, code, position); }
    void Down(int code, int position = 0) const { Scroll(WM_VSCROLL, code, position); }
    int X() const { return session->view.OriginX; }
    int Y() const { return session->view.OriginY; }
    void Put(int x, int y) const {
        session->view.OriginX = x;
        session->view.OriginY = y;
    }

    int line = 0;
    int width = 0;
    int height = 0;
};

} // namespace

TEST_F(ScrolledDesigner, LineGoesByTheHeightOfTheFirstFontBothWays) {
    Down(SB_LINEDOWN);
    EXPECT_EQ(Y(), line);
    Across(SB_LINERIGHT);
    EXPECT_EQ(X(), line);
    Down(SB_LINEUP);
    Across(SB_LINELEFT);
    EXPECT_EQ(X(), 0);
    EXPECT_EQ(Y(), 0);
}

TEST_F(ScrolledDesigner, LineUpFromTheTopAndDownFromTheEndStays) {
    Down(SB_LINEUP);
    Across(SB_LINELEFT);
    EXPECT_EQ(X(), 0);
    EXPECT_EQ(Y(), 0);
    Put(width, height);
    Down(SB_LINEDOWN);
    Across(SB_LINERIGHT);
    EXPECT_EQ(X(), width);
    EXPECT_EQ(Y(), height);
}

TEST_F(ScrolledDesigner, LineUpFromLessThanALineEndsAtTheTop) {
    Put(1, 1);
    Down(SB_LINEUP);
    Across(SB_LINELEFT);
    EXPECT_EQ(X(), 0);
    EXPECT_EQ(Y(), 0);
}

TEST_F(ScrolledDesigner, PageGoesByHalfTheView) {
    Down(SB_PAGEDOWN);
    EXPECT_EQ(Y(), session->view.ViewHeight / 2);
    Across(SB_PAGERIGHT);
    EXPECT_EQ(X(), session->view.ViewWidth / 2);
    Down(SB_PAGEUP);
    Across(SB_PAGELEFT);
    EXPECT_EQ(X(), 0);
    EXPECT_EQ(Y(), 0);
}

TEST_F(ScrolledDesigner, ThumbStandsForAShareOfTheFormByItsMessage) {
    Down(SB_THUMBTRACK, 50);
    EXPECT_EQ(Y(), height / 2);
    Across(SB_THUMBTRACK, 25);
    EXPECT_EQ(X(), width * 25 / 100);
    Down(SB_THUMBTRACK, 100);
    EXPECT_EQ(Y(), height);
    EXPECT_EQ(ScrollPosition(SB_VERT), 100);
}

TEST_F(ScrolledDesigner, ThumbBeyondItsBarEndsThere) {
    Down(SB_THUMBTRACK, 32767);
    EXPECT_EQ(Y(), height);
    Down(SB_THUMBTRACK, -5);
    EXPECT_EQ(Y(), 0);
}

TEST_F(ScrolledDesigner, OtherCodesAreIgnored) {
    Put(100, 100);
    for (const int code : {SB_THUMBPOSITION, SB_TOP, SB_BOTTOM, SB_ENDSCROLL}) {
        Down(code, 50);
        Across(code, 50);
    }
    EXPECT_EQ(X(), 100);
    EXPECT_EQ(Y(), 100);
}

TEST_F(ScrolledDesigner, PageKeysGoByHalfTheForm) {
    Key(VK_NEXT);
    EXPECT_EQ(Y(), height / 2);
    EXPECT_NE(Y(), session->view.ViewHeight / 2);
    Key(VK_PRIOR);
    EXPECT_EQ(Y(), 0);
}

TEST_F(ScrolledDesigner, BarsFollowTheOrigin) {
    Down(SB_THUMBTRACK, 30);
    Across(SB_THUMBTRACK, 40);
    EXPECT_NEAR(ScrollPosition(SB_VERT), 30, 1);
    EXPECT_NEAR(ScrollPosition(SB_HORZ), 40, 1);
}

TEST_F(ScrolledDesigner, FormWithoutHeightKeepsTheBarAtTheTop) {
    Down(SB_THUMBTRACK, 50);
    session->form.ReportHeight = 0;
    for (const int code : {SB_LINEDOWN, SB_PAGEDOWN, SB_THUMBTRACK}) Down(code, 50);
    Command(COMMAND_PAGE_DOWN);
    EXPECT_EQ(Y(), 0);
    EXPECT_EQ(ScrollPosition(SB_VERT), 0);
}

TEST_F(ScrolledDesigner, WindowWithoutBarsScrollsAllTheSame) {
    End();
    params.HorzScroll = params.VertScroll = 0;
    ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
    EXPECT_FALSE(ScrollShown(SB_HORZ));
    EXPECT_FALSE(ScrollShown(SB_VERT));
    Down(SB_LINEDOWN);
    EXPECT_EQ(Y(), line);
}

TEST_F(ScrolledDesigner, ScrollBarsWorkOnAFormThatMayNotBeEdited) {
    edit_allowed = 0;
    Down(SB_LINEDOWN);
    Across(SB_PAGERIGHT);
    EXPECT_GT(X(), 0);
    EXPECT_EQ(Y(), line);
}

// ---- keys ----

TEST_F(ScrolledDesigner, ArrowsScrollByALineWithNothingOrABarSelected) {
    for (const int selected : {NOTHING_SELECTED, 0}) {
        session->form.SelectedItem = selected;
        Put(0, 0);
        Key(VK_DOWN);
        Key(VK_RIGHT);
        EXPECT_EQ(X(), line) << selected;
        EXPECT_EQ(Y(), line) << selected;
        Key(VK_UP);
        Key(VK_LEFT);
        EXPECT_EQ(X(), 0) << selected;
        EXPECT_EQ(Y(), 0) << selected;
    }
}

TEST_F(ScrolledDesigner, ArrowsMoveASelectedItem) {
    ClickAt(250, 110);
    ASSERT_EQ(session->form.SelectedItem, Row("Alpha"));
    const int x = Item("Alpha").x;
    const int y = Item("Alpha").y;
    Key(VK_RIGHT);
    EXPECT_GT(Item("Alpha").x, x);
    Key(VK_DOWN);
    EXPECT_GT(Item("Alpha").y, y);
    EXPECT_EQ(session->form.FormModified, 1U);
}

TEST_F(ScrolledDesigner, DeleteKeyDeletesTheSelectedItemOnce) {
    ClickAt(250, 110);
    KeyDown(VK_DELETE);
    EXPECT_EQ(Row("Alpha"), -1);
    EXPECT_EQ(session->form.TotalItems, 5);
    KeyUp(VK_DELETE); // finds nothing selected
    EXPECT_EQ(session->form.TotalItems, 5);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(ScrolledDesigner, DeleteKeyActsOnceMoreAsItComesUp) {
    session->form.SelectedItem = NOTHING_SELECTED;
    KeyDown(VK_DELETE);
    session->form.SelectedItem = Row("Alpha");
    KeyUp(VK_DELETE);
    EXPECT_EQ(Row("Alpha"), -1);
}

TEST_F(ScrolledDesigner, FormThatMayNotBeEditedKnowsNoKey) {
    edit_allowed = 0;
    ClickAt(250, 110);
    ASSERT_EQ(session->form.SelectedItem, Row("Alpha"));
    const ItemRecord before = Item("Alpha");
    for (const KeyRow &row : DesignerKeys()) Key(static_cast<int>(row.key));
    session->form.SelectedItem = 0;
    for (const KeyRow &row : DesignerKeys()) Key(static_cast<int>(row.key));
    EXPECT_EQ(X(), 0);
    EXPECT_EQ(Y(), 0);
    EXPECT_EQ(session->form.TotalItems, 6);
    EXPECT_EQ(std::memcmp(&before, &Item("Alpha"), sizeof before), 0);
}

TEST_F(ScrolledDesigner, FormThatMayNotBeEditedIsSelectedInButNotDragged) {
    edit_allowed = 0;
    const RECT place{Item("Alpha").x, Item("Alpha").y, Item("Alpha").width, Item("Alpha").height};
    DragTo(250, 110, 400, 150);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    EXPECT_EQ(Item("Alpha").x, place.left);
    EXPECT_EQ(Item("Alpha").y, place.top);
    DragTo(place.left, place.top, place.left + 100, place.top + 60); // by its corner
    EXPECT_EQ(Item("Alpha").width, place.right);
    EXPECT_EQ(Item("Alpha").height, place.bottom);
    Command(COMMAND_DELETE); // the menu goes on all the same
    EXPECT_EQ(Row("Alpha"), -1);
}

TEST_F(ScrolledDesigner, KeysWithoutARowAreIgnored) {
    for (const int key : {VK_RETURN, VK_TAB, VK_HOME, VK_END, VK_F1, VK_SPACE}) Key(key);
    EXPECT_EQ(Y(), 0);
    EXPECT_EQ(session->form.TotalItems, 6);
    EXPECT_EQ(session->form.FormModified, 0U);
}
