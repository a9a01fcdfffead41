#include "tests/support/pointer_session.h"

#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "designer/view.h"

using namespace tessarine;

Edges EdgesOf(const RECT &rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

void PointerSession::SetUp() { StartIn(900, 700); }

void PointerSession::StartIn(int width, int height) {
    params.WindowWidth = width;
    params.WindowHeight = height;
    ASSERT_EQ(StartOn(TwoSections()), CODE_DONE);
    State().SnapToGrid = 0;
}

LPARAM PointerSession::Position(int x, int y) const {
    const POINT pixel = FormToDevice(session, {x, y});
    return MAKELPARAM(pixel.x, pixel.y);
}

void PointerSession::Down(int x, int y, WPARAM keys) { MouseDown(session, keys, Position(x, y)); }

void PointerSession::Over(int x, int y, WPARAM keys) {
    const LPARAM position = Position(x, y);
    if (State().HoverOnly)
        HoverCursor(session, position);
    else
        MouseMove(session, keys, position);
}

void PointerSession::Up(int x, int y) { MouseUp(session, 0, Position(x, y)); }

void PointerSession::OverRulers(WPARAM keys) {
    MouseMove(session, keys, MAKELPARAM(100, CanvasTop(session) - 1));
}

POINT PointerSession::Seen(int x, int y) const {
    return DeviceToForm(session, FormToDevice(session, {x, y}));
}

Edges PointerSession::PlaceOf(const std::string &label) const {
    return EdgesOf(RectOf(Item(label)));
}

ItemRecord &PointerSession::Group() const {
    const int row = GroupRow(session);
    EXPECT_NE(row, NO_ROW);
    return session->form.Items[row == NO_ROW ? 0 : row];
}

int PointerSession::SelectGroup(int left, int top, int right, int bottom) {
    SetPlace(&Group(), {left, top, right, bottom});
    SelectItem(session, GroupRow(session));
    return GroupRow(session);
}

bool PointerSession::Hovers() const {
    return State().PendingCommand == IDLE && State().HoverOnly == 1;
}

bool PointerSession::PointerStandsAt(int x, int y) const {
    POINT place = FormToDevice(session, {x, y});
    ClientToScreen(Window(), &place);
    POINT pointer{};
    GetCursorPos(&pointer);
    return pointer.x == place.x && pointer.y == place.y;
}
