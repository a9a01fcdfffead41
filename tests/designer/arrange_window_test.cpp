#include "designer/arrange.h"
#include "designer/canvas_paint.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/relocate.h"
#include "designer/selection.h"
#include "frame/host_data.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"
#include "tests/support/item_order.h"

using namespace tessarine;

namespace {

Session *ended = nullptr;
void __stdcall EndOverLabel(uint32_t, void *) { ended->State = STATE_ENDING; }

// What moves rows, on a window that shows them: "Alpha" at 200,50 and "Beta" at 500,150 below the
// caption of the page header.
struct ArrangeWindow : DesignerSession {
    void Open() {
        FormBuilder form = TwoSections();
        ASSERT_EQ(StartOn(form), 0);
        DesignerOf(session).SnapToGrid = 0;
    }
    void SelectGroup(int x, int y, int width, int height) {
        Focus() = {x, y, x + width, y + height};
        SetPlace(&session->form.Items[GroupRow(session)], Focus());
        SelectItem(session, GroupRow(session));
    }
    RECT &Focus() { return DesignerOf(session).FocusRect; }
    template <typename Body> int Copies(Body body) {
        const FailingCall copies("BitBlt", BitBlt, FALSE, 1, 0); // counts alone
        body();
        return copies.Seen();
    }
};

} // namespace

TEST_F(ArrangeWindow, CenteringBringsTheItemOnViewAndTheMoveSurvives) {
    Open();
    SetWindowPos(Window(), nullptr, 0, 0, 300, 300, SWP_NOZORDER);
    LayOutCanvas(session);
    ItemRecord &label = Item("Gamma");
    label.width = 100;
    const int middle = Bar(SECTION_DETAIL_1).x + (Bar(SECTION_DETAIL_1).width - 100) / 2;
    session->view.OriginX = session->view.OriginY = 0;
    SelectItem(session, Row("Gamma"));
    CenterItem(session);
    EXPECT_EQ(Item("Gamma").x, middle);
    EXPECT_GT(session->view.OriginX, 0);
    EXPECT_LT(session->view.OriginX, middle);
    EXPECT_EQ(Focus().left, middle);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(ArrangeWindow, EvenSizingPaintsTheFormOnce) {
    Open();
    SelectGroup(150, 60, 600, 300);
    const int once = Copies([&] { MoveItem(session); });
    EXPECT_GT(once, 0);
    EXPECT_EQ(Copies([&] { SizeEvenWidth(session); }), once);
    EXPECT_EQ(Copies([&] { AlignTop(session); }), once);
    EXPECT_EQ(session->view.PaintEnabled, 1u);
    EXPECT_EQ(Item("Beta").y, Item("Alpha").y);
    EXPECT_EQ(session->form.SelectedItem, GroupRow(session));
    EXPECT_EQ(DesignerOf(session).HandleCount, HANDLES);
}

TEST_F(ArrangeWindow, DeletedItemLeavesNoRectangleOnTheScreen) {
    Open();
    SelectItem(session, Row("Beta"));
    DeleteItem(session);
    EXPECT_EQ(Row("Beta"), -1);
    EXPECT_FALSE(DesignerOf(session).FocusVisible);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(WhatIsWrong(session), "");
}

TEST_F(ArrangeWindow, SessionThatEndsOnTheWayToTheMiddleMovesNothing) {
    Open();
    SetWindowPos(Window(), nullptr, 0, 0, 300, 300, SWP_NOZORDER);
    LayOutCanvas(session);
    session->view.OriginX = session->view.OriginY = 0;
    SelectItem(session, Row("Gamma"));
    const int x = Item("Gamma").x;
    ended = session;
    host_data.LabelSelectedCallback = EndOverLabel;
    EXPECT_EQ(Copies([&] { CenterItem(session); }), 1);
    host_data.LabelSelectedCallback = nullptr;
    EXPECT_EQ(session->State, STATE_ENDING);
    session->State = STATE_FORM_OPEN;
    EXPECT_EQ(Item("Gamma").x, x);
    EXPECT_EQ(session->form.FormModified, 0u);
}
