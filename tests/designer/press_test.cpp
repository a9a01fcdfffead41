#include <cstring>

#include "commands.h"
#include "designer/field_records.h"
#include "designer/group.h"
#include "designer/handles.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

Session *ended;

void __stdcall EndSession(uint32_t, void *) { WantEnd(ended); }

class Press : public PointerSession {
protected:
    int Selected() const { return session->form.SelectedItem; }
    bool Armed() const { return State().PendingCommand == IDLE && State().HoverOnly == 0; }
    uint32_t Toggled(const std::string &label) const {
        return Item(label).ItemFlags & FLAG_GROUP_TOGGLE;
    }
    // The middle of a handle of the selection.
    POINT Handle(int handle) const {
        const RECT &place = State().HandleRects[handle];
        return {place.left + 8, place.top + 8};
    }
};

} // namespace

TEST_F(Press, ItemIsSelectedAndArmed) {
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_TRUE(Armed());
    EXPECT_EQ(Focus(), PlaceOf("Alpha"));
    EXPECT_EQ(State().FocusVisible, 1U);
    Down(400, 550);
    EXPECT_EQ(Selected(), Row("Gamma"));
}

TEST_F(Press, BareBandSelectsItsBar) {
    Down(1500, 600);
    EXPECT_EQ(Selected(), +session->form.Sections[SECTION_DETAIL_1].BarItem);
    EXPECT_TRUE(Armed());
}

TEST_F(Press, PlaceOutsideAllBandsSelectsTheFirstBar) {
    Down(400, 550);
    Down(1500, 1300);
    EXPECT_EQ(Selected(), 0);
    Down(400, 550);
    Down(20, 550);
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Press, SelectsFromNothingToo) {
    Deselect(session);
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_TRUE(Armed());
}

TEST_F(Press, AbandonsADragThatStillRuns) {
    for (const int drag : {COMMAND_MOVE, COMMAND_SIZE, COMMAND_BAND}) {
        State().PendingCommand = drag;
        Down(400, 550);
        EXPECT_TRUE(Armed()) << drag;
        Down(300, 110);
    }
}

TEST_F(Press, ReadOnlyFormSelectsWithoutArming) {
    edit_allowed = 0;
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_TRUE(Hovers());
    const POINT handle = Handle(HANDLE_BOTTOM_RIGHT);
    Down(handle.x, handle.y);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_TRUE(Hovers());
    Over(500, 300);
    EXPECT_TRUE(Hovers());
}

TEST_F(Press, HostWithoutTheWordHasAReadOnlyForm) {
    host_data.EditAllowed = nullptr;
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_TRUE(Hovers());
}

TEST_F(Press, HandleIsHeldUnderItsCursor) {
    for (int handle = 0; handle < HANDLES; ++handle) {
        EndGesture(session);
        SelectItem(session, Row("Alpha"));
        const POINT place = Handle(handle);
        Down(place.x, place.y);
        EXPECT_EQ(State().PendingCommand, COMMAND_SIZE) << handle;
        EXPECT_EQ(State().ActiveHandle, handle);
        EXPECT_EQ(State().HoverOnly, 0U);
        EXPECT_EQ(GetCursor(), HandleCursor(session, handle)) << handle;
    }
}

TEST_F(Press, ItemUnderAHandleGivesWayToIt) {
    SelectItem(session, 0);
    const POINT place = Handle(HANDLE_BOTTOM); // on the next section's caption
    Down(place.x, place.y);
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(State().PendingCommand, COMMAND_SIZE);
}

TEST_F(Press, GroupIsHeldWhereNoItemLies) {
    const int group = SelectGroup(150, 60, 800, 300);
    Down(450, 280);
    EXPECT_EQ(Selected(), group);
    EXPECT_TRUE(Armed());
    EXPECT_EQ(Group().width, 650);
}

TEST_F(Press, ItemInTheGroupEndsIt) {
    SelectGroup(150, 60, 800, 300);
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_EQ(Group().width, 0);
    EXPECT_FALSE(IsGroupMember(session, Row("Beta")));
}

TEST_F(Press, ShiftTakesAnItemOutOfTheGroupAndAddsOne) {
    const int group = SelectGroup(150, 60, 800, 300);
    const HeldKey shift(VK_SHIFT);
    Down(300, 110);
    EXPECT_FALSE(IsGroupMember(session, Row("Alpha")));
    EXPECT_TRUE(IsGroupMember(session, Row("Beta")));
    Down(400, 550);
    EXPECT_TRUE(IsGroupMember(session, Row("Gamma")));
    Down(300, 110);
    EXPECT_TRUE(IsGroupMember(session, Row("Alpha")));
    EXPECT_EQ(Selected(), group);
    EXPECT_EQ(State().PendingCommand, IDLE);
}

TEST_F(Press, ShiftOnABareBandLeavesTheGroupAsItIs) {
    const int group = SelectGroup(150, 60, 800, 300);
    const HeldKey shift(VK_SHIFT);
    Down(1500, 600);
    EXPECT_EQ(Selected(), group);
    EXPECT_TRUE(IsGroupMember(session, Row("Alpha")));
    EXPECT_EQ(Bar(SECTION_DETAIL_1).ItemFlags & FLAG_GROUP_TOGGLE, 0);
}

TEST_F(Press, ShiftWithoutAGroupSelectsAsEver) {
    const HeldKey shift(VK_SHIFT);
    Down(300, 110);
    EXPECT_EQ(Selected(), Row("Alpha"));
    EXPECT_EQ(Toggled("Alpha"), 0U);
}

TEST_F(Press, ItemPartlyBeyondTheFormIsOutOfBounds) {
    Down(300, 110);
    EXPECT_EQ(State().OutOfBounds, 0U);
    Item("Beta").x = static_cast<int16_t>(session->printer.ReportWidth);
    Down(session->printer.ReportWidth + 50, 210);
    EXPECT_EQ(Selected(), Row("Beta"));
    EXPECT_EQ(State().OutOfBounds, 1U);
    Down(1500, 600); // a bar leaves it as it is
    EXPECT_EQ(State().OutOfBounds, 1U);
}

TEST_F(Press, EachCommandThatShowsANewItemIsAPlacement) {
    for (const int command :
         {COMMAND_NEW_LABEL, COMMAND_PICTURE_PASTED, COMMAND_PICTURE_FILE, COMMAND_BARCODE_FIELD,
          COMMAND_APPLICATION_FIELD, COMMAND_DATA_FIELD, COMMAND_CALC_FIELD, COMMAND_SYSTEM_FIELD,
          COMMAND_USER_FIELD, COMMAND_NEW_LINE, COMMAND_PASTE})
        EXPECT_TRUE(IsPlacement(command)) << command;
    for (const int command : {IDLE, COMMAND_MOVE, COMMAND_SIZE, COMMAND_BAND, COMMAND_CUT, 636})
        EXPECT_FALSE(IsPlacement(command)) << command;
}

TEST_F(Press, AnyButtonDropsWhatIsBeingPlaced) {
    std::strcpy(session->TextBuffer, "New");
    State().NewField = TakeFieldRow(session);
    const struct {
        int command;
        WPARAM button;
        int type;
    } cases[] = {{COMMAND_NEW_LABEL, MK_LBUTTON, ITEM_LABEL},
                 {COMMAND_PICTURE_PASTED, MK_MBUTTON, ITEM_PICTURE},
                 {COMMAND_PICTURE_FILE, MK_RBUTTON, ITEM_PICTURE},
                 {COMMAND_BARCODE_FIELD, MK_LBUTTON, ITEM_FIELD},
                 {COMMAND_APPLICATION_FIELD, MK_MBUTTON, ITEM_FIELD},
                 {COMMAND_DATA_FIELD, MK_RBUTTON, ITEM_FIELD},
                 {COMMAND_CALC_FIELD, MK_LBUTTON, ITEM_FIELD},
                 {COMMAND_SYSTEM_FIELD, MK_MBUTTON, ITEM_FIELD},
                 {COMMAND_USER_FIELD, MK_RBUTTON, ITEM_FIELD},
                 {COMMAND_NEW_LINE, MK_LBUTTON, ITEM_LINE}};
    for (const auto &c : cases) {
        Deselect(session);
        const int before = session->form.TotalItems;
        State().PendingCommand = c.command;
        State().FocusRect = {900, 300, 1000, 350};
        Down(950, 325, c.button);
        ASSERT_EQ(session->form.TotalItems, before + 1) << c.command;
        EXPECT_EQ(session->form.Items[Selected()].ItemType, c.type) << c.command;
        EXPECT_EQ(session->form.Items[Selected()].x, 900) << c.command;
        EXPECT_TRUE(Hovers()) << c.command;
    }
}

TEST_F(Press, SessionThatItsHostEndsIsLeftAlone) {
    Deselect(session);
    ended = session;
    host_data.LabelSelectedCallback = EndSession;
    {
        const InMessage handled(session);
        Down(300, 110);
        EXPECT_EQ(State().FocusVisible, 0U);
    }
    session = nullptr;
}
