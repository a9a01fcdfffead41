#include "commands.h"
#include "designer/handles.h"
#include "designer/limits.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "designer/undo.h"
#include "designer/view.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

constexpr LPARAM FAR_AWAY = MAKELPARAM(777, 333);

bool MoveWaits(HWND window) {
    bool waits = false;
    for (MSG message; PeekMessageA(&message, window, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE);)
        waits |= message.lParam == FAR_AWAY;
    return waits;
}

class Drag : public PointerSession {
protected:
    // As far as the move that begins it.
    void Begin(const std::string &label, WPARAM keys = MK_LBUTTON) {
        const ItemRecord &item = Item(label);
        Down(item.x + 20, item.y + 20, keys);
        Over(item.x + 30, item.y + 20, keys);
    }
    void HoldHandle(const std::string &label, int handle) {
        SelectItem(session, Row(label));
        const RECT &place = State().HandleRects[handle];
        Down(place.left + 8, place.top + 8);
    }
    // The rectangle of a size with its middle under the pointer.
    Edges Around(POINT pointer, int width, int height) const {
        const LONG left = pointer.x - width / 2;
        const LONG top = pointer.y - height / 2;
        return {left, top, left + width, top + height};
    }
    bool Untouched() const { return !session->form.FormModified; }
};

} // namespace

TEST_F(Drag, BeginsWithThePointerInTheItemsMiddle) {
    Down(210, 100);
    PostMessageA(Window(), WM_MOUSEMOVE, MK_LBUTTON, FAR_AWAY);
    Over(215, 100);
    EXPECT_EQ(State().PendingCommand, COMMAND_MOVE);
    EXPECT_TRUE(PointerStandsAt(300, 115));
    EXPECT_FALSE(MoveWaits(Window()));
    EXPECT_EQ(Focus(), PlaceOf("Alpha"));
}

TEST_F(Drag, WithNoButtonOnlyTheCursorChanges) {
    Down(300, 110);
    SetCursor(session->device.CrossCursor);
    Over(310, 110, 0);
    EXPECT_EQ(State().PendingCommand, IDLE);
    EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
}

TEST_F(Drag, RectanglesMiddleFollowsThePointer) {
    Begin("Alpha");
    Over(600, 300);
    EXPECT_EQ(Focus(), Around(Seen(600, 300), 200, 50));
    EXPECT_EQ(State().FocusVisible, 1U);
    EXPECT_EQ(GetCursor(), session->device.CrossCursor);
    Over(700, 600);
    EXPECT_EQ(Focus(), Around(Seen(700, 600), 200, 50));
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140}));
    EXPECT_TRUE(Untouched());
}

TEST_F(Drag, EachButtonMoves) {
    for (const WPARAM button : {MK_LBUTTON, MK_MBUTTON, MK_RBUTTON}) {
        Begin("Alpha", button);
        EXPECT_EQ(State().PendingCommand, COMMAND_MOVE) << button;
        EndGesture(session);
    }
}

TEST_F(Drag, RectangleSnapsWhileItMoves) {
    State().SnapToGrid = 1;
    State().GridSize = 250; // sixteen ticks
    Begin("Alpha");
    Over(625, 500);
    EXPECT_EQ(Focus(), (Edges{500, 480, 700, 530}));
}

TEST_F(Drag, RectangleStaysInsideTheLimits) {
    const RECT limits = FormLimits(session);
    Begin("Alpha");
    Over(-500, 5);
    EXPECT_EQ(Focus(), (Edges{limits.left, limits.top, limits.left + 200, limits.top + 50}));
    Over(3000, 3000);
    EXPECT_EQ(Focus(),
              (Edges{limits.right - 200, limits.bottom - 50, limits.right, limits.bottom}));
}

TEST_F(Drag, ItemThatLayOutsideGoesBeyondRightAndBottomOnly) {
    const RECT limits = FormLimits(session);
    Item("Alpha").x = static_cast<int16_t>(session->printer.ReportWidth);
    Begin("Alpha");
    const POINT pointer = Seen(2300, 1200);
    Over(2300, 1200);
    EXPECT_EQ(Focus(), Around(pointer, 200, 50));
    Over(-500, 5);
    EXPECT_EQ(Focus()[0], limits.left);
    EXPECT_EQ(Focus()[1], limits.top);
}

TEST_F(Drag, ReleaseAppliesTheMove) {
    Begin("Alpha");
    Over(600, 300);
    const Edges place = Focus();
    Up(600, 300);
    EXPECT_TRUE(Hovers());
    EXPECT_EQ(PlaceOf("Alpha"), place);
    EXPECT_FALSE(Untouched());
}

TEST_F(Drag, WindowTakesItFromLeftAndMiddleButton) {
    for (const MouseButton button : {MouseButton::LEFT, MouseButton::MIDDLE}) {
        const Edges before = PlaceOf("Alpha");
        const POINT from = {before[0] + 100, before[1] + 25};
        const POINT to = Seen(from.x + 150, from.y + 60);
        DragTo(from.x, from.y, from.x + 150, from.y + 60, button);
        EXPECT_EQ(PlaceOf("Alpha"), Around(to, 200, 50));
        EXPECT_TRUE(Hovers());
    }
}

TEST_F(Drag, RightButtonOnAPictureShowsNoMenuAndEndsNoMove) {
    Item("Alpha").ItemType = ITEM_PICTURE;
    DragTo(300, 115, 600, 250, MouseButton::RIGHT);
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    EXPECT_EQ(State().PendingCommand, COMMAND_MOVE);
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140}));
    MoveTo(610, 250);
    EXPECT_TRUE(Hovers());
    EXPECT_TRUE(Untouched());
}

TEST_F(Drag, GroupMovesAsOne) {
    SelectGroup(150, 60, 800, 300);
    const Edges beta = PlaceOf("Beta");
    Down(450, 280);
    Over(460, 280);
    EXPECT_TRUE(PointerStandsAt(475, 180));
    Over(525, 210);
    const LONG dx = Focus()[0] - 150;
    const LONG dy = Focus()[1] - 60;
    Up(525, 210);
    EXPECT_EQ(PlaceOf("Beta"), (Edges{beta[0] + dx, beta[1] + dy, beta[2] + dx, beta[3] + dy}));
    EXPECT_EQ(Group().x, 150 + dx);
}

TEST_F(Drag, PointerOverTheRulersLeavesTheRectangleAndReleaseAppliesIt) {
    Begin("Alpha");
    Over(600, 300);
    const Edges place = Focus();
    OverRulers();
    EXPECT_EQ(Focus(), place);
    EXPECT_EQ(State().PendingCommand, COMMAND_MOVE);
    EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
    OverRulers(0); // even without a button
    EXPECT_EQ(State().PendingCommand, COMMAND_MOVE);
    Up(600, -20);
    EXPECT_EQ(PlaceOf("Alpha"), place);
    EXPECT_TRUE(Hovers());
}

TEST_F(Drag, LostButtonAbandonsIt) {
    for (const int drag : {COMMAND_MOVE, COMMAND_SIZE, COMMAND_BAND}) {
        Begin("Alpha");
        Over(600, 300);
        State().PendingCommand = drag;
        const Edges place = Focus();
        Over(700, 400, 0);
        EXPECT_TRUE(Hovers()) << drag;
        EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
        EXPECT_EQ(Focus(), place); // until the next repaint
        EXPECT_EQ(State().FocusVisible, 1U);
        EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140}));
    }
    EXPECT_TRUE(Untouched());
}

TEST_F(Drag, PlacementNeedsNoButton) {
    Deselect(session);
    State().PendingCommand = COMMAND_NEW_LINE;
    State().HoverOnly = 0;
    State().FocusRect = {500, 300, 800, 350};
    Over(700, 600, 0);
    EXPECT_EQ(State().PendingCommand, COMMAND_NEW_LINE);
    EXPECT_EQ(Focus(), Around(Seen(700, 600), 300, 50));
    EXPECT_EQ(GetCursor(), session->device.CrossCursor);
}

TEST_F(Drag, HandleSizesTheItem) {
    SaveUndo(session);
    HoldHandle("Alpha", HANDLE_BOTTOM_RIGHT);
    Over(600, 300);
    const POINT pointer = Seen(600, 300);
    EXPECT_EQ(Focus(), (Edges{200, 90, pointer.x, pointer.y}));
    EXPECT_EQ(GetCursor(), session->device.SizeNWSECursor);
    EXPECT_TRUE(Untouched());
    Up(600, 300);
    EXPECT_TRUE(Hovers());
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, pointer.x, pointer.y}));
    EXPECT_EQ(State().UndoImage, nullptr);
}

TEST_F(Drag, SizingGoesOnWithTheOppositeHandleAndItsCursor) {
    HoldHandle("Beta", HANDLE_BOTTOM_RIGHT);
    Over(300, 300);
    const POINT pointer = Seen(300, 300);
    EXPECT_EQ(Focus(), (Edges{pointer.x, 190, 500, pointer.y}));
    EXPECT_EQ(State().ActiveHandle, HANDLE_BOTTOM_LEFT);
    Over(310, 300);
    EXPECT_EQ(GetCursor(), session->device.SizeNESWCursor);
}

TEST_F(Drag, SizingStaysInsideTheLimitsAndDoesNotSnap) {
    State().SnapToGrid = 1;
    State().GridSize = 250;
    const RECT limits = FormLimits(session);
    HoldHandle("Beta", HANDLE_BOTTOM_RIGHT);
    Over(3000, 3000);
    EXPECT_EQ(Focus(), (Edges{500, 190, limits.right, limits.bottom}));
    HoldHandle("Beta", HANDLE_TOP_LEFT);
    Over(-100, 5);
    EXPECT_EQ(Focus(), (Edges{limits.left, limits.top, 700, 240}));
}

TEST_F(Drag, SectionTakesNoMoreThanItsPage) {
    const int most = PageLimit(session) - Bar(SECTION_DETAIL_1).height;
    SelectItem(session, 0);
    const RECT &handle = State().HandleRects[HANDLE_BOTTOM];
    Down(handle.left + 8, handle.top + 8);
    Over(1000, 600);
    EXPECT_EQ(Focus(), (Edges{125, 0, 2000, Seen(1000, 600).y}));
    Over(1000, 5000);
    EXPECT_EQ(Focus(), (Edges{125, 0, 2000, most - 1}));
    SelectItem(session, session->form.Sections[SECTION_DETAIL_1].BarItem);
    const int top = Bar(SECTION_DETAIL_1).y;
    Over(1000, top - 100);
    EXPECT_EQ(Focus(), (Edges{125, top, 2000, top}));
}

TEST_F(Drag, FormThatHasBecomeReadOnlyKeepsItPending) {
    Begin("Alpha");
    Over(600, 300);
    edit_allowed = 0;
    for (const int drag : {COMMAND_MOVE, COMMAND_SIZE}) {
        State().PendingCommand = drag;
        Up(600, 300);
        EXPECT_EQ(State().PendingCommand, drag);
    }
    EXPECT_TRUE(Untouched());
}

TEST_F(Drag, ReleaseWithoutOneDoesNothing) {
    Down(300, 110);
    Up(300, 110);
    EXPECT_EQ(State().PendingCommand, IDLE);
    EXPECT_EQ(State().HoverOnly, 0U); // armed still
    EXPECT_TRUE(Untouched());
}

TEST_F(Drag, RectangleThatLeavesTheViewComesToItsMiddleWithThePointer) {
    StartIn(400, 300);
    Begin("Alpha");
    const POINT target = Seen(1500, 210);
    Over(1500, 210);
    EXPECT_EQ(session->view.OriginX, target.x - 100 - (session->view.ViewWidth - 200) / 2);
    EXPECT_TRUE(PointerStandsAt(target.x, target.y));
    EXPECT_EQ(Focus(), Around(target, 200, 50));
    Up(1500, 210);
    EXPECT_EQ(PlaceOf("Alpha"), Around(target, 200, 50));
}

TEST_F(Drag, HoverShowsTheCursorOfTheHandleBelow) {
    SelectItem(session, Row("Alpha"));
    State().HoverOnly = 1;
    for (int handle = 0; handle < HANDLES; ++handle) {
        const RECT &place = State().HandleRects[handle];
        Over(place.left + 8, place.top + 8, 0);
        EXPECT_EQ(GetCursor(), HandleCursor(session, handle)) << handle;
    }
    Over(300, 115, 0);
    EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
    const RECT &place = State().HandleRects[HANDLE_LEFT];
    Deselect(session);
    SetCursor(session->device.CrossCursor);
    Over(place.left + 8, place.top + 8, 0);
    EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
}
