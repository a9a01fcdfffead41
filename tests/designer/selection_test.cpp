#include "designer/selection.h"

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/handles.h"
#include "designer/view.h"
#include "tests/support/client_picture.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

// A page header of 440 units at 0 with two labels, the small one on the large.
class HitTested : public testing::Test {
protected:
    HitTested() {
        session->form.Header.BarHeight = 40;
        form.Section(SECTION_PAGE_HEADER, 400);
        form.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 0, 0, 0, 0);
        form.Item(ITEM_LABEL, SECTION_PAGE_HEADER, 200, 100, 300, 100);
        form.Item(ITEM_LABEL, SECTION_PAGE_HEADER, 250, 120, 50, 20);
        form.Item(ITEM_LABEL, SECTION_PAGE_HEADER, 300, 120, 50, 20);
        form.Item(ITEM_LABEL, SECTION_PAGE_HEADER, 600, 100, -50, -20);
    }

    BareSession session;
    SessionForm form{session};
};

enum { BAR, GROUP, LARGE, SMALL, NEXT };

class Selection : public PointerSession {
protected:
    uint32_t ColorAt(int x, int y) const {
        const POINT pixel = FormToDevice(session, {x, y});
        return PictureOf(Window()).At(pixel.x, pixel.y);
    }
};

constexpr uint32_t BLACK = 0;
constexpr uint32_t WHITE = 0xFFFFFF;

} // namespace

TEST_F(HitTested, SmallestItemThatHoldsThePlaceIsHit) {
    const struct {
        const char *name;
        int x, y, row;
    } cases[] = {{"bare band", 1000, 300, BAR},
                 {"item", 220, 180, LARGE},
                 {"item on an item", 260, 130, SMALL},
                 {"upper left corner", 200, 100, LARGE},
                 {"lower right corner", 500, 200, LARGE},
                 {"behind the corner", 501, 200, BAR},
                 {"below the corner", 500, 201, BAR},
                 {"edge that two of a size share", 300, 130, NEXT},
                 {"empty group", 0, 0, BAR},
                 {"item of negative size", 590, 95, BAR},
                 {"above all bands", 1000, -50, BAR},
                 {"below all bands", 1000, 5000, BAR},
                 {"left of all bands", 10, 300, BAR}};
    for (const auto &c : cases) EXPECT_EQ(HitTest(session, c.x, c.y), c.row) << c.name;
}

TEST_F(HitTested, PlaceIsRemembered) {
    HitTest(session, 1234, -56);
    EXPECT_EQ(DesignerOf(session).LastClickX, 1234);
    EXPECT_EQ(DesignerOf(session).LastClickY, -56);
}

TEST_F(HitTested, GroupIsHitWhileItHasAnExtent) {
    session->form.Items[GROUP].x = 900;
    session->form.Items[GROUP].y = 100;
    session->form.Items[GROUP].width = 1;
    EXPECT_EQ(HitTest(session, 900, 100), GROUP);
    session->form.Items[GROUP].width = 0;
    EXPECT_EQ(HitTest(session, 900, 100), BAR);
}

TEST_F(HitTested, FirstBarIsHitBelowAllOthers) {
    form.Section(SECTION_DETAIL_1, 400);
    session->form.Items[session->form.TotalItems - 1].y = 440;
    EXPECT_EQ(HitTest(session, 1000, 600), session->form.TotalItems - 1);
    EXPECT_EQ(HitTest(session, 1000, 2000), BAR);
}

TEST_F(Selection, ItemGetsHandlesAndTheFocusRectangle) {
    Deselect(session);
    EXPECT_EQ(SelectItem(session, Row("Alpha")), 1);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    EXPECT_EQ(State().HandleCount, HANDLES);
    EXPECT_EQ(Focus(), PlaceOf("Alpha"));
    for (const RECT &handle : State().HandleRects)
        EXPECT_EQ(ColorAt(handle.left + 8, handle.top + 8), BLACK) << handle.left;
}

TEST_F(Selection, BarGetsTwoHandles) {
    SelectItem(session, 0);
    int shown = 0;
    for (const RECT &handle : State().HandleRects) shown += HandleShown(handle);
    EXPECT_EQ(shown, 2);
}

TEST_F(Selection, RectangleOnTheScreenGoesFirst) {
    SelectItem(session, Row("Alpha"));
    ShowFocus(session);
    SelectItem(session, Row("Beta"));
    EXPECT_EQ(State().FocusVisible, 0U);
    EXPECT_EQ(Focus(), PlaceOf("Beta"));
}

TEST_F(Selection, RowThatAHostInventsIsRefused) {
    SelectItem(session, Row("Alpha"));
    for (const int row : {-1, session->form.TotalItems, 100000}) {
        EXPECT_EQ(SelectItem(session, row), 0);
        EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    }
}

TEST_F(Selection, DeselectPaintsTheHandlesWhiteWhereItemsLie) {
    Item("Beta").x = Item("Alpha").x; // under Alpha's handles
    Item("Beta").y = Item("Alpha").y;
    Item("Beta").ItemFlags |= FLAG_BACKGROUND;
    Item("Beta").Background = {0, RGB(255, 0, 0), 0};
    State().PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
    const ItemRecord alpha = Item("Alpha");
    const int x = alpha.x + alpha.width / 2;
    const int y = alpha.y + 4; // in the upper handle, inside the item
    ASSERT_EQ(ColorAt(x, y), 0xFF0000U);
    SelectItem(session, Row("Alpha"));
    ASSERT_EQ(ColorAt(x, y), BLACK);
    Deselect(session);
    EXPECT_EQ(ColorAt(x, y), WHITE);
    RepaintCanvas(session);
    EXPECT_EQ(ColorAt(x, y), 0xFF0000U);
}

TEST_F(Selection, DeselectEndsWithoutHandlesAndFocusRectangle) {
    SelectItem(session, Row("Alpha"));
    ShowFocus(session);
    Deselect(session);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(State().HandleCount, 0);
    EXPECT_EQ(State().FocusVisible, 0U);
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140}));
}

TEST_F(Selection, DeselectEndsAGroup) {
    SelectGroup(150, 60, 800, 300);
    Deselect(session);
    EXPECT_EQ(Group().width, 0);
    EXPECT_EQ(Group().height, 0);
    EXPECT_EQ(Group().x, 150);
}

TEST_F(Selection, DeselectEmptiesTheHostsEditControl) {
    const HWND edit = CreateWindowExA(0, "EDIT", "Alpha", WS_CHILD, 0, 0, 100, 20, Window(),
                                      nullptr, nullptr, nullptr);
    session->Desk.EditWindow = edit;
    Deselect(session); // of the bar that opening selects
    EXPECT_EQ(WindowText(edit), "");
    SetWindowTextA(edit, "Kept");
    Deselect(session);
    EXPECT_EQ(WindowText(edit), "Kept");
    session->Desk.EditWindow = nullptr;
}
