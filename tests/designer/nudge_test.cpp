#include "designer/nudge.h"

#include <climits>

#include "commands.h"
#include "designer/group.h"
#include "designer/selection.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

constexpr int STEP = 10;

class Nudge : public PointerSession {
protected:
    void SetUp() override {
        PointerSession::SetUp();
        SetStep();
    }
    void SetStep() {
        session->device.FontHeight = STEP * 16 + 15;
        SelectItem(session, Row("Alpha"));
    }
    bool Untouched() const { return !session->form.FormModified; }
};

} // namespace

TEST_F(Nudge, EachArrowMovesByAShareOfTheFont) {
    const struct {
        int command;
        Edges place;
    } cases[] = {{COMMAND_LINE_UP, {200, 80, 400, 130}},
                 {COMMAND_LINE_DOWN, {200, 90, 400, 140}},
                 {COMMAND_LEFT, {190, 90, 390, 140}},
                 {COMMAND_RIGHT, {200, 90, 400, 140}}};
    for (const auto &c : cases) {
        NudgeItem(session, c.command);
        EXPECT_EQ(PlaceOf("Alpha"), c.place) << c.command;
    }
    EXPECT_EQ(session->form.SelectedItem, Row("Alpha"));
    EXPECT_FALSE(Untouched());
}

TEST_F(Nudge, GridIsTheStepWhileItIsOn) {
    State().SnapToGrid = 1;
    State().GridSize = 250;
    NudgeItem(session, COMMAND_RIGHT);
    EXPECT_EQ(Item("Alpha").x, 500); // 450, on the grid
}

TEST_F(Nudge, UpIntoTheCaptionStopsBelowIt) {
    Item("Alpha").y = 45;
    NudgeItem(session, COMMAND_LINE_UP);
    EXPECT_EQ(Item("Alpha").y, 41);
}

TEST_F(Nudge, DownBeyondTheSectionIsRefused) {
    Item("Alpha").y = 440 - 50 - STEP;
    NudgeItem(session, COMMAND_LINE_DOWN);
    EXPECT_EQ(Item("Alpha").y, 440 - 50 - STEP);
    EXPECT_TRUE(Untouched());
    Item("Alpha").y = 440 - 50 - STEP - 1;
    NudgeItem(session, COMMAND_LINE_DOWN);
    EXPECT_EQ(Item("Alpha").y, 440 - 50 - 1);
}

TEST_F(Nudge, ItemAsHighAsItsSectionDoesNotMoveAtAll) {
    Item("Alpha").y = 41;
    Item("Alpha").height = 399;
    for (const int command : {COMMAND_LINE_UP, COMMAND_LINE_DOWN, COMMAND_LEFT, COMMAND_RIGHT})
        NudgeItem(session, command);
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 41, 400, 440}));
    EXPECT_TRUE(Untouched());
}

TEST_F(Nudge, GroupMovesUncheckedByItsSection) {
    SelectGroup(150, 42, 800, 430);
    NudgeItem(session, COMMAND_LINE_UP);
    EXPECT_EQ(Group().y, 32);
    EXPECT_EQ(Item("Alpha").y, 80);
    EXPECT_EQ(Item("Beta").y, 180);
    EXPECT_EQ(session->form.SelectedItem, GroupRow(session));
    NudgeItem(session, COMMAND_LINE_DOWN);
    NudgeItem(session, COMMAND_LINE_DOWN);
    EXPECT_EQ(Group().y + Group().height, 440);
}

TEST_F(Nudge, KeysThatWaitAreThrownAway) {
    const auto count = [&] {
        int waiting = 0;
        for (MSG message; PeekMessageA(&message, Window(), WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);)
            ++waiting;
        return waiting;
    };
    const auto repeat = [&] {
        for (int i = 0; i < 5; ++i) Post(WM_KEYDOWN, VK_LEFT);
        Post(WM_KEYUP, VK_LEFT);
    };
    repeat();
    NudgeItem(session, COMMAND_LEFT);
    EXPECT_EQ(count(), 0);
    SelectItem(session, 0);
    repeat();
    NudgeItem(session, COMMAND_LEFT);
    EXPECT_EQ(count(), 6); // a bar doesn't take them
}

TEST_F(Nudge, BarAndNothingStayAsTheyAre) {
    SelectItem(session, 0);
    NudgeItem(session, COMMAND_LINE_DOWN);
    Deselect(session);
    NudgeItem(session, COMMAND_LINE_DOWN);
    EXPECT_EQ(Bar(SECTION_PAGE_HEADER).y, 0);
    EXPECT_TRUE(Untouched());
}

TEST_F(Nudge, MoveSurvivesTheScrollingThatItCauses) {
    StartIn(400, 300);
    SetStep();
    Item("Alpha").x = 1400;
    NudgeItem(session, COMMAND_RIGHT);
    EXPECT_GT(session->view.OriginX, 0);
    EXPECT_EQ(Item("Alpha").x, 1410);
}

TEST_F(Nudge, StepBeyondARecordsPlacesIsRefused) {
    State().SnapToGrid = 1;
    for (const int step : {INT_MAX, INT_MIN, 40000}) {
        State().GridSize = step;
        for (const int command : {COMMAND_LEFT, COMMAND_RIGHT}) NudgeItem(session, command);
        EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140})) << step;
    }
    EXPECT_TRUE(Untouched());
}
