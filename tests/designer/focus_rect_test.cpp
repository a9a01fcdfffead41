#include "designer/focus_rect.h"

#include "designer/selection.h"
#include "tests/support/client_picture.h"
#include "tests/support/failing_call.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

class FocusRectangle : public PointerSession {
protected:
    void SetUp() override {
        PointerSession::SetUp();
        Deselect(session);
        bare = PictureOf(Window());
        State().FocusRect = place;
    }
    int Changed() const { return Differences(PictureOf(Window()), bare); }

    static constexpr RECT place = {250, 100, 750, 600}; // over items and a section's caption
    ClientPicture bare;
};

int lines; // drawn on the screen

BOOL WINAPI CountLines(HDC, const POINT *, int) {
    ++lines;
    return TRUE;
}

int asked; // for the focus
HWND(WINAPI *ask)(HWND);

HWND WINAPI CountAsking(HWND window) {
    ++asked;
    return ask(window);
}

} // namespace

TEST_F(FocusRectangle, DrawnAndErasedLeavesTheScreenAsItWas) {
    const HDC screen = session->drawing.ScreenDC;
    EXPECT_EQ(FrDrawFocusRect(session, screen, place), 1);
    EXPECT_GT(Changed(), 100);
    EXPECT_EQ(State().FocusVisible, 1U);
    EXPECT_EQ(FrEraseFocusRect(session, screen, place), 1);
    EXPECT_EQ(Changed(), 0);
    EXPECT_EQ(State().FocusVisible, 0U);
}

TEST_F(FocusRectangle, NeitherDrawsTwice) {
    const ReplacedCall counted("Polyline", CountLines);
    lines = 0;
    ShowFocus(session);
    ShowFocus(session);
    EXPECT_EQ(lines, 1);
    HideFocus(session);
    HideFocus(session);
    EXPECT_EQ(lines, 2);
}

TEST_F(FocusRectangle, RectangleWithoutWidthIsNotDrawn) {
    const HDC screen = session->drawing.ScreenDC;
    for (const LONG right : {place.left, place.left - 1}) {
        State().FocusRect.right = right;
        EXPECT_EQ(FrDrawFocusRect(session, screen, State().FocusRect), 0);
        EXPECT_EQ(State().FocusVisible, 0U);
    }
    EXPECT_EQ(Changed(), 0);
    State().FocusRect = {250, 100, 251, 100};
    EXPECT_EQ(FrDrawFocusRect(session, screen, State().FocusRect), 1);
}

TEST_F(FocusRectangle, DrawingTakesTheInputAndErasingDoesNot) {
    SetFocus(host.Get());
    ASSERT_EQ(GetFocus(), host.Get());
    ShowFocus(session);
    EXPECT_EQ(GetFocus(), Window());
    SetFocus(host.Get());
    State().FocusVisible = 1;
    HideFocus(session);
    EXPECT_EQ(GetFocus(), host.Get());
}

TEST_F(FocusRectangle, WindowThatHasTheInputDoesNotAskForItAgain) {
    const auto draw = [&] {
        asked = 0;
        for (int step = 0; step < 3; ++step) {
            ShowFocus(session);
            HideFocus(session);
        }
        return asked;
    };
    ask = SetFocus;
    const ReplacedCall counted("SetFocus", CountAsking);
    SetFocus(host.Get());
    EXPECT_EQ(draw(), 1);
    EXPECT_EQ(GetFocus(), Window());
    EXPECT_EQ(draw(), 0);
    State().HasInput = 0; // taken while the window was deaf
    EXPECT_EQ(draw(), 1);
    SetFocus(host.Get());
    EXPECT_EQ(draw(), 1);
}

TEST_F(FocusRectangle, WindowThatLosesTheInputTakesItBackWithTheDotsThatItDraws) {
    session->form.SelectedItem = Row("Beta");
    ShowFocus(session);
    HideFocus(session);
    SetFocus(host.Get());
    EXPECT_EQ(State().FocusVisible, 1U);
    EXPECT_EQ(GetFocus(), Window());
}

TEST_F(FocusRectangle, ContextKeepsItsPenAndItsMode) {
    const HDC screen = session->drawing.ScreenDC;
    const HGDIOBJ pen = GetCurrentObject(screen, OBJ_PEN);
    ShowFocus(session);
    EXPECT_EQ(GetROP2(screen), R2_COPYPEN);
    EXPECT_EQ(GetCurrentObject(screen, OBJ_PEN), pen);
}
