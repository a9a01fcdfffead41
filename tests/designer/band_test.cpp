#include "designer/band.h"

#include "commands.h"
#include "designer/group.h"
#include "designer/handles.h"
#include "designer/item_table.h"
#include "designer/limits.h"
#include "designer/selection.h"
#include "tests/support/entry_code.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

class Band : public PointerSession {
protected:
    void Draw(int x, int y, int to_x, int to_y) {
        Down(x, y);
        Over((x + to_x) / 2, (y + to_y) / 2);
        Over(to_x, to_y);
        Up(to_x, to_y);
    }
    int Groups() const {
        int groups = 0;
        for (int row = 0; row < session->form.TotalItems; ++row)
            groups += session->form.Items[row].ItemType == ITEM_GROUP;
        return groups;
    }
};

Session *selects; // an item of it, whenever its edit control is emptied

LRESULT CALLBACK SelectOnText(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTEXT) SelectItem(selects, 0);
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

TEST_F(Band, PressAndReleaseWithoutAMoveStartsNone) {
    Down(1000, 300);
    Over(1000, 300);
    EXPECT_EQ(State().PendingCommand, IDLE);
    Up(1000, 300);
    EXPECT_EQ(session->form.SelectedItem, 0);
}

TEST_F(Band, GoesFromThePressToThePointer) {
    Down(1000, 200);
    const POINT from = Seen(1000, 200);
    const POINT to = Seen(1200, 350);
    Over(1200, 350);
    EXPECT_EQ(State().PendingCommand, COMMAND_BAND);
    EXPECT_EQ(State().ActiveHandle, HANDLE_BOTTOM_RIGHT);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(Focus(), (Edges{from.x, from.y, to.x, to.y}));
    EXPECT_EQ(State().FocusVisible, 1U);
    Over(1100, 250);
    EXPECT_EQ(GetCursor(), session->device.ArrowCursor);
    EXPECT_EQ(Focus()[2], Seen(1100, 250).x);
}

TEST_F(Band, NothingIsSelectedUnderItWhateverTheHostSelectsAtItsStart) {
    const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD, 0, 0, 100, 20, Window(), nullptr,
                                      nullptr, nullptr);
    SetWindowLongA(edit, GWLP_WNDPROC, reinterpret_cast<LONG>(SelectOnText));
    Down(1000, 200);
    selects = session;
    session->Desk.EditWindow = edit;
    Over(1200, 350);
    session->Desk.EditWindow = nullptr;
    EXPECT_EQ(State().PendingCommand, COMMAND_BAND);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
}

TEST_F(Band, StartsInsideTheLimitsAlone) {
    const RECT limits = FormLimits(session);
    const struct {
        const char *name;
        int x, y;
        uint32_t free;
        int command;
    } cases[] = {{"left", limits.left - 5, 300, 1, IDLE},
                 {"above", 900, limits.top - 5, 1, IDLE},
                 {"right", limits.right + 5, 300, 0, IDLE},
                 {"below", 900, limits.bottom + 5, 0, IDLE},
                 {"right, out of bounds", limits.right + 5, 300, 1, COMMAND_BAND},
                 {"below, out of bounds", 900, limits.bottom + 5, 1, COMMAND_BAND},
                 {"inside", 900, 300, 0, COMMAND_BAND}};
    for (const auto &c : cases) {
        State().PendingCommand = IDLE;
        SelectItem(session, 0);
        Down(1000, 200);
        State().OutOfBounds = c.free;
        Over(c.x, c.y);
        EXPECT_EQ(State().PendingCommand, c.command) << c.name;
    }
}

TEST_F(Band, MakesAGroupOfWhatItTouches) {
    Item("Gamma").ItemFlags |= FLAG_GROUP_TOGGLE; // of an earlier group
    Draw(150, 60, 600, 210);
    EXPECT_EQ(session->form.SelectedItem, GroupRow(session));
    EXPECT_EQ(Group().x, Seen(150, 60).x);
    EXPECT_EQ(Group().y, Seen(150, 60).y);
    EXPECT_EQ(Group().x + Group().width, Seen(600, 210).x);
    EXPECT_EQ(Group().y + Group().height, Seen(600, 210).y);
    EXPECT_TRUE(IsGroupMember(session, Row("Alpha")));
    EXPECT_TRUE(IsGroupMember(session, Row("Beta")));
    EXPECT_FALSE(IsGroupMember(session, Row("Gamma")));
    EXPECT_TRUE(Hovers());
    EXPECT_EQ(session->form.FormModified, 0U);
}

TEST_F(Band, GroupStandsInTheSectionOfItsUpperEdge) {
    Draw(900, 600, 1100, 700);
    EXPECT_EQ(Group().SectionIndex, SECTION_DETAIL_1);
    EXPECT_GT(GroupRow(session), Row("Gamma"));
    EXPECT_EQ(Groups(), 1);
    EXPECT_EQ(session->form.TotalItems, 6);
    for (const int section : {SECTION_PAGE_HEADER, SECTION_DETAIL_1})
        EXPECT_EQ(+session->form.Sections[section].BarItem, BarOfSection(session, section));
    Draw(900, 200, 1100, 700);
    EXPECT_EQ(Group().SectionIndex, SECTION_PAGE_HEADER);
}

TEST_F(Band, DrawnUpAndLeftIsPutInOrder) {
    Down(1000, 300);
    Over(900, 250);
    Over(800, 200);
    EXPECT_EQ(State().ActiveHandle, HANDLE_TOP_LEFT);
    EXPECT_EQ(Focus()[0], Seen(800, 200).x);
    Up(800, 200);
    EXPECT_EQ(Group().x, Seen(800, 200).x);
    EXPECT_EQ(Group().y, Seen(800, 200).y);
    EXPECT_EQ(Group().x + Group().width, Seen(1000, 300).x);
    EXPECT_EQ(Group().y + Group().height, Seen(1000, 300).y);
}

TEST_F(Band, ReleasedBeforeItsHandleMirrorsIsPutInOrderToo) {
    Down(1000, 300);
    Over(800, 200);
    Up(800, 200);
    EXPECT_EQ(Group().x, Seen(800, 200).x);
    EXPECT_EQ(Group().width, Seen(1000, 300).x - Seen(800, 200).x);
}

TEST_F(Band, EmptyOneSelectsTheBarOfItsSection) {
    Down(900, 600);
    Over(950, 650);
    Over(900, 600);
    Up(900, 600);
    EXPECT_EQ(session->form.SelectedItem, +session->form.Sections[SECTION_DETAIL_1].BarItem);
    EXPECT_EQ(Groups(), 1);
}

TEST_F(Band, ReadOnlyFormStillEndsIt) {
    Down(150, 60);
    Over(600, 210);
    edit_allowed = 0;
    Up(600, 210);
    EXPECT_TRUE(Hovers());
    EXPECT_EQ(session->form.SelectedItem, GroupRow(session));
}

TEST_F(Band, PlacesBeyondARecordAreCutOff) {
    Down(1000, 300);
    Over(1100, 350);
    State().FocusRect = {-40000, 300, 50000, 40000};
    EndBand(session);
    EXPECT_EQ(Group().x, 0);
    EXPECT_EQ(Group().width, 32767);
    EXPECT_EQ(Group().y + Group().height, 32767);
}

TEST_F(Band, FormWithoutAGroupIsFatal) {
    Down(150, 60);
    Over(600, 210);
    ShiftItems(session, GroupRow(session), 1, SHIFT_REMOVE);
    EXPECT_EQ(EntryCode(session, [&] { EndBand(session); }), CODE_FORM_CONTRADICTION);
    EXPECT_EQ(boxes.LastText(), "Group Item Missing");
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
}
