#include "designer/canvas_paint.h"

#include <limits>

#include "canvas/canvas.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/selection.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "tests/support/client_picture.h"
#include "tests/support/designer_session.h"
#include "tests/support/failing_call.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

constexpr uint32_t WHITE = 0xFFFFFF;
constexpr uint32_t MARK = 0x123456; // a colour that no painting has

class CanvasPaint : public DesignerSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(TwoSections()), CODE_DONE) << boxes.LastText(); }

    void Repaint(int mode) {
        DesignerOf(session).PaintMode = mode;
        RepaintCanvas(session);
    }
    // Puts the mark's colour over the window, outside all clipping.
    void Mark() {
        const HDC device = GetDCEx(Window(), nullptr, DCX_CACHE);
        RECT client{};
        GetClientRect(Window(), &client);
        const HBRUSH brush = CreateSolidBrush(RGB(0x12, 0x34, 0x56));
        FillRect(device, &client, brush);
        DeleteObject(brush);
        ReleaseDC(Window(), device);
    }
    int Marked(int y) { return PictureOf(Window()).CountInRow(y, MARK); }
    int BandPixels() {
        return MulDiv(session->view.RulerBandHeight, session->drawing.LogPixelsY, 250);
    }
    RECT ClipOf(HDC device) {
        const HRGN region = CreateRectRgn(0, 0, 0, 0);
        RECT box{-1, -1, -1, -1};
        if (GetClipRgn(device, region) == 1) GetRgnBox(region, &box);
        DeleteObject(region);
        return box;
    }
    void SelectNothing() {
        session->form.SelectedItem = NOTHING_SELECTED;
        DesignerOf(session).FocusVisible = 0;
    }
};

HWND closing;

void __stdcall CloseTheWindow(uint32_t, void *) { SendMessageA(closing, WM_CLOSE, 0, 0); }

const uint32_t *word_at_notice; // that says that the label has changed
uint32_t heard_word;
Session *ended_at_notice;
int selections;

LRESULT CALLBACK HearModified(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == MESSAGE_MODIFIED) {
        heard_word = *word_at_notice;
        if (ended_at_notice) WantEnd(ended_at_notice);
    }
    selections += message == MESSAGE_MAY_EDIT;
    return DefWindowProcA(window, message, wParam, lParam);
}

class HostLabel : public CanvasPaint {
protected:
    HostLabel() {
        host_data.LabelChangedPtr = &changed;
        host_data.LabelTypePtr = &type;
        host_data.LabelGeometryPtr = &label;
        label.LabelWidth = 3.5F;
        label.LabelHeight = 1.25F;
        label.LabelsAcross = 2;
        SetWindowLongA(host.Get(), GWLP_WNDPROC, reinterpret_cast<LONG>(HearModified));
        word_at_notice = &changed;
        heard_word = 0;
        ended_at_notice = nullptr;
    }
    uint32_t changed = 0;
    uint32_t type = 9;
    LabelGeometry label{};
};

} // namespace

// ---- the areas ----

TEST_F(CanvasPaint, CanvasIsWhatTheBandLeaves) {
    RECT client{};
    GetClientRect(Window(), &client);
    const int height = MulDiv(client.bottom, 250, session->drawing.LogPixelsY);
    EXPECT_EQ(session->view.RulerBandHeight, static_cast<int>(session->form.Fonts[0].Height) + 30);
    EXPECT_EQ(session->view.ViewWidth, MulDiv(client.right, 250, session->drawing.LogPixelsX) + 1);
    EXPECT_EQ(session->view.ViewHeight, height - session->view.RulerBandHeight + 1);
    POINT corner{};
    GetViewportOrgEx(session->view.MemoryDC, &corner);
    EXPECT_EQ(corner.x, 0);
    EXPECT_EQ(corner.y, BandPixels());
}

TEST_F(CanvasPaint, BandOfAFormWithoutRulersIsGone) {
    session->form.Header.RulerFlags = RULER_INCHES;
    LayOutCanvas(session);
    RepaintAll(session);
    EXPECT_EQ(session->view.RulerBandHeight, 0);
    // The first thing on the window is the first bar's upper edge.
    EXPECT_GT(PictureOf(Window()).CountInRow(0, 0), 300);
}

TEST_F(CanvasPaint, BitmapThatCannotBeMadeIsFatal) {
    SetWindowPos(Window(), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
    const FailingCall none("CreateCompatibleBitmap", CreateCompatibleBitmap, nullptr, 1,
                           EVERY_CALL);
    EXPECT_THROW(LayOutCanvas(session), Unwinding);
    EXPECT_EQ(boxes.LastText(), "Unable to create compatible DC");
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    EXPECT_EQ(session->ErrorCode, CODE_DISPLAY);
    RepaintCanvas(session); // draws on what is left of it, and stays whole
}

// ---- what a repaint covers ----

TEST_F(CanvasPaint, RepaintOfTheCanvasLeavesTheBandOnTheScreen) {
    SelectNothing();
    Mark();
    Repaint(PAINT_CANVAS);
    EXPECT_GT(Marked(BandPixels() / 2), 500);
    EXPECT_EQ(Marked(BandPixels() + 5), 0);
    EXPECT_EQ(DesignerOf(session).PaintMode, PAINT_BORDERS);
}

TEST_F(CanvasPaint, RepaintOfTheRulersCoversTheBandToo) {
    for (const int mode : {PAINT_RULERS, PAINT_BORDERS}) {
        SelectNothing();
        Mark();
        Repaint(mode);
        EXPECT_EQ(PictureOf(Window()).Count(MARK), 0) << mode;
        EXPECT_EQ(DesignerOf(session).PaintMode, PAINT_BORDERS);
    }
}

TEST_F(CanvasPaint, RepaintOfTheCanvasTakesInTheBandWhileABarIsSelected) {
    session->form.SelectedItem = 0;
    Mark();
    Repaint(PAINT_CANVAS);
    EXPECT_EQ(PictureOf(Window()).Count(MARK), 0);
}

TEST_F(CanvasPaint, RepaintOfTheCanvasStaysThatWhileAnItemIsSelected) {
    session->form.SelectedItem = Row("Alpha");
    Mark();
    Repaint(PAINT_CANVAS);
    EXPECT_GT(Marked(BandPixels() / 2), 500);
}

TEST_F(CanvasPaint, NothingIsPaintedWhilePaintingIsOff) {
    Mark();
    session->view.PaintEnabled = 0;
    Repaint(PAINT_RULERS);
    EXPECT_EQ(DesignerOf(session).PaintMode, PAINT_RULERS);
    session->view.PaintEnabled = 1;
    EXPECT_GT(Marked(BandPixels() + 5), 500);
    RepaintAll(session);
    EXPECT_EQ(PictureOf(Window()).Count(MARK), 0);
}

TEST_F(CanvasPaint, FormIsShownFromTheOrigin) {
    SelectNothing();
    RepaintAll(session);
    const ClientPicture before = PictureOf(Window());
    session->view.OriginY = 250; // 96 pixels
    ApplyOrigin(session);
    RepaintAll(session);
    const ClientPicture after = PictureOf(Window());
    const int detail = BandPixels() + MulDiv(Bar(SECTION_DETAIL_1).y, 96, 250);
    for (int y = detail + 5; y < detail + 100; ++y)
        EXPECT_EQ(before.CountInRow(y, 0), after.CountInRow(y - 96, 0)) << y;
}

// ---- the selection ----

TEST_F(CanvasPaint, SelectionHasItsHandlesAndItsDotsOnTheScreenAgain) {
    SelectNothing();
    RepaintAll(session);
    const ClientPicture bare = PictureOf(Window());
    session->form.SelectedItem = Row("Beta");
    Repaint(PAINT_CANVAS);
    EXPECT_GT(Differences(bare, PictureOf(Window())), 100);
    EXPECT_EQ(DesignerOf(session).HandleCount, HANDLES);
    EXPECT_EQ(DesignerOf(session).FocusVisible, 1U);
    EXPECT_EQ(DesignerOf(session).FocusRect.left, Item("Beta").x);
}

TEST_F(CanvasPaint, RepaintShowsADraggedRectangleAgainWithoutASelection) {
    SelectNothing();
    RepaintAll(session);
    EXPECT_EQ(DesignerOf(session).FocusVisible, 0U);
    const ClientPicture bare = PictureOf(Window());
    DesignerOf(session).FocusRect = {700, 300, 900, 400};
    DesignerOf(session).FocusVisible = 1;
    RepaintAll(session);
    EXPECT_EQ(DesignerOf(session).FocusVisible, 1U);
    EXPECT_GT(Differences(bare, PictureOf(Window())), 50);
}

TEST_F(CanvasPaint, GroupShowsItsRedRectangleOnlyInTheRepaint) {
    constexpr uint32_t RED = 0xFF0000;
    const int row = GroupRow(session);
    SetPlace(&session->form.Items[row], {150, 60, 800, 300});
    SelectItem(session, row);
    EXPECT_EQ(PictureOf(Window()).Count(RED), 0);
    RepaintAll(session);
    EXPECT_GT(PictureOf(Window()).Count(RED), 50);
}

TEST_F(CanvasPaint, HostMayEndTheSessionWhenARepaintTellsItOfTheSelection) {
    const HWND window = Window();
    session->form.SelectedItem = Row("Beta");
    session->form.FormModified = 0;
    closing = window;
    host_data.LabelSelectedCallback = CloseTheWindow;
    Send(WM_PAINT);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(SessionStands(session));
    session = nullptr;
}

// ---- what a repaint leaves ----

TEST_F(CanvasPaint, WindowStaysClippedToTheCanvasAndTheBitmapUnclipped) {
    RepaintAll(session);
    RECT client{};
    GetClientRect(Window(), &client);
    const RECT clip = ClipOf(session->drawing.ScreenDC);
    EXPECT_EQ(clip.top, BandPixels());
    EXPECT_EQ(clip.right, client.right);
    EXPECT_EQ(clip.bottom, client.bottom);
    // The last label has taken the bitmap's clip away.
    EXPECT_EQ(ClipOf(session->view.MemoryDC).left, -1);
}

TEST_F(CanvasPaint, NoFontStaysSelectedOnTheBitmap) {
    RepaintAll(session);
    EXPECT_EQ(GetCurrentObject(session->view.MemoryDC, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetCurrentObject(session->view.MemoryDC, OBJ_PEN), GetStockObject(BLACK_PEN));
}

TEST_F(CanvasPaint, BitmapHoldsTheFormWithoutHandlesAndFocus) {
    SelectNothing();
    RepaintAll(session);
    const ClientPicture bare = PictureOf(Window());
    session->form.SelectedItem = Row("Beta");
    RepaintAll(session);
    SetWindowOrgEx(session->view.MemoryDC, 0, session->view.RulerBandHeight, nullptr);
    const ClientPicture held = DrawnLike(Window(), [this](HDC device) {
        const HDC memory = session->view.MemoryDC;
        SaveDC(memory);
        SetMapMode(memory, MM_TEXT);
        SetWindowOrgEx(memory, 0, 0, nullptr);
        SetViewportOrgEx(memory, 0, 0, nullptr);
        BitBlt(device, 0, 0, 2000, 2000, memory, 0, 0, SRCCOPY);
        RestoreDC(memory, -1);
    });
    EXPECT_EQ(Differences(bare, held), 0);
}

TEST_F(CanvasPaint, WindowIsValidBehindIt) {
    InvalidateRect(Window(), nullptr, FALSE);
    EXPECT_TRUE(GetUpdateRect(Window(), nullptr, FALSE));
    RepaintAll(session);
    EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE));
}

TEST_F(CanvasPaint, HundredsOfRepaintsLeaveNothingBehind) {
    const auto repaint = [this] {
        for (const int mode : {PAINT_CANVAS, PAINT_RULERS, PAINT_BORDERS}) {
            LayOutCanvas(session);
            Repaint(mode);
        }
    };
    repaint();
    const int objects = CountGdiObjects();
    const int windows = CountUserObjects();
    for (int time = 0; time < 150; ++time) repaint();
    EXPECT_EQ(CountGdiObjects(), objects);
    EXPECT_EQ(CountUserObjects(), windows);
}

// ---- a label that the host has changed ----

TEST_F(HostLabel, ChangedLabelIsTakenOverOnce) {
    ItemRecord &bar = Bar(SECTION_DETAIL_1);
    const int caption = session->form.Header.BarHeight;
    const int report_height = session->form.ReportHeight - bar.height;
    session->form.FormModified = 0;
    changed = 7;
    LayOutCanvas(session);
    EXPECT_EQ(changed, 0U);
    EXPECT_EQ(+session->form.Header.LabelType, 9U);
    EXPECT_EQ(+session->form.Header.LabelGeometry.LabelsAcross, 2);
    EXPECT_EQ(bar.width, 875);
    EXPECT_EQ(bar.height, caption + 312);
    EXPECT_EQ(session->form.ReportHeight, report_height + caption + 312);
    EXPECT_EQ(session->form.FormModified, 1U);
    label.LabelWidth = 1;
    LayOutCanvas(session);
    EXPECT_EQ(bar.width, 875);
}

TEST_F(HostLabel, WordStandsUntilTheHostHasHeardOfTheChange) {
    session->form.FormModified = 0;
    changed = 7;
    LayOutCanvas(session);
    EXPECT_EQ(heard_word, 7U);
    EXPECT_EQ(changed, 0U);
}

TEST_F(HostLabel, HostThatEndsTheSessionOverItHearsOfNoSelection) {
    session->form.FormModified = 0;
    session->form.SelectedItem = Row("Beta");
    changed = 1;
    ended_at_notice = session;
    selections = 0;
    Send(WM_PAINT);
    EXPECT_EQ(selections, 0);
    EXPECT_FALSE(SessionStands(session));
    session = nullptr;
}

TEST_F(HostLabel, LabelThatNobodyRaisedOrNobodyGivesChangesNothing) {
    const ItemRecord before = Bar(SECTION_DETAIL_1);
    LayOutCanvas(session);
    EXPECT_EQ(Bar(SECTION_DETAIL_1).width, before.width);
    host_data.LabelChangedPtr = nullptr;
    LayOutCanvas(session);
    EXPECT_EQ(Bar(SECTION_DETAIL_1).width, before.width);
    EXPECT_NE(+session->form.Header.LabelType, 9U);
}

TEST_F(HostLabel, LabelThatNoFormCanHoldIsNotTaken) {
    const ItemRecord before = Bar(SECTION_DETAIL_1);
    session->form.FormModified = 0;
    for (const float inches : {131.2F, 1e30F, -1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        label.LabelHeight = inches;
        changed = 1;
        LayOutCanvas(session);
        EXPECT_EQ(changed, 0U);
        EXPECT_EQ(Bar(SECTION_DETAIL_1).height, before.height) << inches;
        EXPECT_EQ(session->form.FormModified, 0U);
    }
}
