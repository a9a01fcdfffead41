#include "designer/view.h"

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/focus_rect.h"
#include "designer/selection.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

class DesignerView : public PointerSession {
protected:
    // A window that shows a part of the form alone.
    void SetUp() override { StartIn(400, 300); }

    POINT Origin() const { return {session->view.OriginX, session->view.OriginY}; }
    void SetOrigin(int x, int y) {
        session->view.OriginX = x;
        session->view.OriginY = y;
    }
};

Session *ended;

void __stdcall EndSession(uint32_t, void *) { WantEnd(ended); }

bool operator==(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }

} // namespace

TEST_F(DesignerView, PixelsBelowTheBandArePlacesOfTheForm) {
    const int top = CanvasTop(session);
    ASSERT_GT(top, 0);
    ASSERT_EQ(session->drawing.LogPixelsX, 96);
    EXPECT_TRUE(DeviceToForm(session, {0, top}) == POINT({0, 0}));
    EXPECT_TRUE(DeviceToForm(session, {96, top + 48}) == POINT({250, 125}));
    SetOrigin(30, 70);
    EXPECT_TRUE(DeviceToForm(session, {96, top + 48}) == POINT({280, 195}));
    EXPECT_TRUE(FormToDevice(session, {280, 195}) == POINT({96, top + 48}));
    EXPECT_TRUE(FormToDevice(session, {30, 70 - 125}) == POINT({0, top - 48}));
}

TEST_F(DesignerView, PositionOfAMessageIsSignedInBothWords) {
    const int top = CanvasTop(session);
    EXPECT_TRUE(PlaceOfMessage(session, MAKELPARAM(-96, top - 48)) == POINT({-250, -125}));
    EXPECT_TRUE(PixelOfMessage(MAKELPARAM(40000, 65535)) == POINT({40000 - 65536, -1}));
}

TEST_F(DesignerView, OriginStaysInTheFormAndIsApplied) {
    const int width = session->printer.ReportWidth;
    const int height = session->form.ReportHeight;
    const struct {
        POINT wanted, origin;
    } cases[] = {{{-5, -7}, {0, 0}},
                 {{5, 7}, {5, 7}},
                 {{width, height}, {width, height}},
                 {{width + 1, height + 1}, {width, height}}};
    for (const auto &c : cases) {
        SetOrigin(c.wanted.x, c.wanted.y);
        ClampOrigin(session);
        EXPECT_TRUE(Origin() == c.origin) << c.wanted.x;
        for (const HDC device : {session->drawing.ScreenDC, session->view.MemoryDC}) {
            POINT applied{};
            GetWindowOrgEx(device, &applied);
            EXPECT_TRUE(applied == c.origin) << c.wanted.x;
        }
    }
}

TEST_F(DesignerView, ScrollBarsTellTheOriginsShareOfTheForm) {
    SetOrigin(session->printer.ReportWidth / 2, session->form.ReportHeight / 4);
    SyncScrollBars(session);
    EXPECT_EQ(ScrollPosition(SB_HORZ), 49); // an odd width
    EXPECT_EQ(ScrollPosition(SB_VERT), 25);
    EXPECT_EQ(session->view.ScrollPosY, 25);
}

TEST_F(DesignerView, BarThatTheSessionDoesNotHaveStaysUnset) {
    session->view.HorzScroll = 0;
    SetOrigin(session->printer.ReportWidth, session->form.ReportHeight);
    SyncScrollBars(session);
    EXPECT_EQ(session->view.ScrollPosX, 0);
    EXPECT_EQ(session->view.ScrollPosY, 100);
}

TEST_F(DesignerView, FormWithoutHeightHasItsBarAtTheTop) {
    session->form.ReportHeight = 0;
    SetOrigin(0, 50);
    SyncScrollBars(session);
    EXPECT_EQ(ScrollPosition(SB_VERT), 0);
}

TEST_F(DesignerView, PointerGoesToAPlaceOfTheForm) {
    SetOrigin(100, 50);
    MoveCursorTo(session, 350, 175);
    EXPECT_TRUE(PointerStandsAt(350, 175));
}

TEST_F(DesignerView, WhatIsOutOfViewComesToItsMiddle) {
    const int width = session->view.ViewWidth;
    const int height = session->view.ViewHeight;
    ASSERT_LT(width, 1200);
    ASSERT_LT(height, 700);
    Deselect(session);
    const struct {
        const char *name;
        RECT rectangle;
        POINT origin;
        int scrolled;
    } cases[] = {
        {"in view", {10, 10, 60, 40}, {0, 0}, 0},
        {"on the left and right edge", {0, 10, width - 1, 40}, {0, 0}, 0},
        {"on the upper edge", {10, 0, 60, 40}, {0, 0}, 0}, // as far up as it goes
        {"beyond the right edge", {width, 10, width + 50, 40}, {width - (width - 50) / 2, 0}, 1},
        {"beyond the lower edge", {10, 600, 60, 640}, {0, 600 - (height - 40) / 2}, 1},
        {"as wide as the view", {500, 10, 500 + width, 40}, {0, 0}, 0},
        {"as high as the view", {10, 300, 60, 300 + height}, {0, 0}, 0},
        {"off to the left", {-500, 10, -450, 40}, {0, 0}, 0},
    };
    for (const auto &c : cases) {
        SetOrigin(0, 0);
        EXPECT_EQ(EnsureVisible(session, c.rectangle), c.scrolled) << c.name;
        EXPECT_TRUE(Origin() == c.origin) << c.name << " " << Origin().x << " " << Origin().y;
    }
}

TEST_F(DesignerView, ScrollingEndsAtTheFormsWidth) {
    Deselect(session);
    const int width = session->printer.ReportWidth;
    EXPECT_EQ(EnsureVisible(session, {width + 2000, 10, width + 2050, 40}), 1);
    EXPECT_EQ(Origin().x, width);
}

TEST_F(DesignerView, NothingScrollsForABarOrASizeDrag) {
    SelectItem(session, 0);
    EXPECT_EQ(EnsureVisible(session, {1700, 600, 1750, 640}), 0);
    SelectItem(session, Row("Alpha"));
    State().PendingCommand = COMMAND_SIZE;
    EXPECT_EQ(EnsureVisible(session, {1700, 600, 1750, 640}), 0);
    State().PendingCommand = COMMAND_MOVE;
    EXPECT_EQ(EnsureVisible(session, {1700, 600, 1750, 640}), 1);
}

TEST_F(DesignerView, ScrollingKeepsTheRectangleThatIsAboutToBeApplied) {
    SelectItem(session, Row("Alpha"));
    const RECT wanted = {1600, 650, 1700, 700};
    State().FocusRect = wanted;
    ASSERT_EQ(EnsureVisible(session, wanted), 1);
    EXPECT_EQ(Focus(), EdgesOf(wanted));
    EXPECT_EQ(PlaceOf("Alpha"), (Edges{200, 90, 400, 140}));
    EXPECT_EQ(State().FocusVisible, 1U);
    EXPECT_EQ(ScrollPosition(SB_HORZ), session->view.OriginX * 100 / session->printer.ReportWidth);
}

TEST_F(DesignerView, HostThatEndsTheSessionWhileItScrollsIsHeard) {
    SelectItem(session, Row("Alpha"));
    ended = session;
    host_data.LabelSelectedCallback = EndSession;
    {
        const InMessage handled(session);
        EXPECT_EQ(EnsureVisible(session, {1600, 650, 1700, 700}), 1);
    }
    host_data.LabelSelectedCallback = nullptr;
    session = nullptr;
}
