// The viewer's window, driven by real messages.
#include "host/view/viewer.h"

#include "host/view/resource_ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/tess_program.h"

namespace {

class ViewerOn : public Tess {
protected:
    void SetUp() override {
        ASSERT_EQ(Report("countries").code, 0u);
        viewer = std::make_unique<Viewer>(folder.Path("countries.frc"));
        SetWindowPos(viewer->Window(), nullptr, 0, 0, 500, 400, SWP_NOZORDER);
        Serve();
    }

    // Serves what waits, as the viewer's own loop does.
    void Serve() {
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
            if (!viewer->Translate(&message)) DispatchMessageA(&message);
    }
    void Send(UINT message, WPARAM wParam, LPARAM lParam = 0) {
        SendMessageA(viewer->Window(), message, wParam, lParam);
        Serve();
    }
    void Press(WPARAM key) {
        PostMessageA(viewer->Window(), WM_KEYDOWN, key, 0);
        Serve();
    }
    std::string Title() const {
        char title[300] = "";
        GetWindowTextA(viewer->Window(), title, sizeof title);
        return title;
    }
    bool Grayed(UINT entry) const {
        return GetMenuState(GetMenu(viewer->Window()), entry, MF_BYCOMMAND) & MF_GRAYED;
    }

    std::unique_ptr<Viewer> viewer;
};

} // namespace

TEST_F(ViewerOn, TitleTellsFilePageAndZoom) {
    Send(WM_COMMAND, VIEW_ACTUAL_SIZE);
    EXPECT_EQ(Title(), "countries.frc - page 1 of 3 - 100%");
    Send(WM_COMMAND, VIEW_NEXT);
    EXPECT_EQ(Title(), "countries.frc - page 2 of 3 - 100%");
}

TEST_F(ViewerOn, KeysTurnPages) {
    Press(VK_END);
    EXPECT_EQ(viewer->View().Page(), 3);
    Press(VK_HOME);
    EXPECT_EQ(viewer->View().Page(), 1);
    Press(VK_NEXT); // the whole page is in view
    EXPECT_EQ(viewer->View().Page(), 2);
    Press(VK_SPACE);
    EXPECT_EQ(viewer->View().Page(), 3);
    Press(VK_DOWN);
    EXPECT_EQ(viewer->View().Page(), 3);
    Press(VK_BACK);
    EXPECT_EQ(viewer->View().Page(), 2);
    Press(VK_UP);
    EXPECT_EQ(viewer->View().Page(), 1);
}

TEST_F(ViewerOn, WheelScrollsAndWithControlZooms) {
    Send(WM_COMMAND, VIEW_ACTUAL_SIZE);
    const LONG top = viewer->View().Sheet().top;
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    EXPECT_EQ(viewer->View().Sheet().top, top - 120);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 2));
    EXPECT_EQ(viewer->View().Sheet().top, top - 60);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA));
    EXPECT_DOUBLE_EQ(viewer->View().Zoom(), 1.25);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -WHEEL_DELTA));
    EXPECT_DOUBLE_EQ(viewer->View().Zoom(), 1.0);
}

TEST_F(ViewerOn, ScrollBarsMoveThroughTheReport) {
    Send(WM_COMMAND, VIEW_ACTUAL_SIZE);
    const LONG top = viewer->View().Sheet().top;
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(viewer->View().Sheet().top, top - 40);
    Send(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(viewer->View().Sheet().top, top);
    Send(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(viewer->View().Page(), 3);
    Send(WM_VSCROLL, SB_TOP);
    EXPECT_EQ(viewer->View().Page(), 1);
    Send(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_LT(viewer->View().Sheet().top, top);
    Send(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(viewer->View().Sheet().top, top);
    const LONG left = viewer->View().Sheet().left;
    Send(WM_HSCROLL, SB_LINEDOWN);
    EXPECT_EQ(viewer->View().Sheet().left, left - 40);
    Send(WM_HSCROLL, SB_PAGEUP);
    EXPECT_EQ(viewer->View().Sheet().left, left);
}

TEST_F(ViewerOn, BarsThatHaveNothingToScrollHide) {
    const auto bars = [&] {
        return GetWindowLongA(viewer->Window(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL);
    };
    Send(WM_COMMAND, VIEW_FIT_WIDTH);
    EXPECT_EQ(bars(), WS_VSCROLL);
    Send(WM_COMMAND, VIEW_ACTUAL_SIZE);
    EXPECT_EQ(bars(), WS_HSCROLL | WS_VSCROLL);
    Send(WM_COMMAND, VIEW_FIT_PAGE);
    EXPECT_EQ(bars(), WS_VSCROLL); // through the three pages
}

TEST_F(ViewerOn, DraggingMovesThePage) {
    Send(WM_COMMAND, VIEW_ACTUAL_SIZE);
    const RECT before = viewer->View().Sheet();
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(200, 200));
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(170, 150));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(170, 150));
    Send(WM_MOUSEMOVE, 0, MAKELPARAM(10, 10)); // the button is up
    EXPECT_EQ(viewer->View().Sheet().left, before.left - 30);
    EXPECT_EQ(viewer->View().Sheet().top, before.top - 50);
}

TEST_F(ViewerOn, MenuTellsWhatIsPossible) {
    EXPECT_TRUE(Grayed(VIEW_FIRST));
    EXPECT_TRUE(Grayed(VIEW_PREVIOUS));
    EXPECT_FALSE(Grayed(VIEW_NEXT));
    Send(WM_COMMAND, VIEW_LAST);
    EXPECT_FALSE(Grayed(VIEW_FIRST));
    EXPECT_TRUE(Grayed(VIEW_NEXT));
    EXPECT_TRUE(Grayed(VIEW_LAST));
    Send(WM_COMMAND, VIEW_FIT_WIDTH);
    EXPECT_TRUE(GetMenuState(GetMenu(viewer->Window()), VIEW_FIT_WIDTH, MF_BYCOMMAND) & MF_CHECKED);
}

TEST_F(ViewerOn, GoToAsksForAPageAndForcesItIntoTheReport) {
    MessageBoxes boxes;
    boxes.OnDialog("Go to Page", [](HWND dialog) {
        SetDlgItemInt(dialog, GO_TO_PAGE, 99, FALSE);
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    Send(WM_COMMAND, VIEW_GO_TO);
    EXPECT_EQ(viewer->View().Page(), 3);
    boxes.OnDialog("Go to Page", [](HWND dialog) {
        SetDlgItemInt(dialog, GO_TO_PAGE, 1, FALSE);
        SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    Send(WM_COMMAND, VIEW_GO_TO);
    EXPECT_EQ(viewer->View().Page(), 3);
}

TEST_F(ViewerOn, PageIsPaintedOnItsSheet) {
    UpdateWindow(viewer->Window());
    const RECT sheet = viewer->View().Sheet();
    const HDC device = GetDC(viewer->Window());
    int inked = 0;
    for (LONG y = sheet.top; y < sheet.bottom; ++y)
        for (LONG x = sheet.left; x < sheet.right; ++x)
            inked += GetPixel(device, x, y) != RGB(255, 255, 255);
    EXPECT_NE(GetPixel(device, 2, 2), RGB(255, 255, 255)); // the desk
    ReleaseDC(viewer->Window(), device);
    EXPECT_GT(inked, 1000);
}

TEST_F(ViewerOn, ReloadShowsTheNewReportAndKeepsThePage) {
    Send(WM_COMMAND, VIEW_NEXT);
    Send(WM_COMMAND, VIEW_RELOAD);
    EXPECT_EQ(viewer->View().Page(), 2);
}

TEST_F(ViewerOn, ReportThatIsGoneIsToldAndTheOldOneStays) {
    DeleteFileA(folder.Path("countries.frc").c_str());
    MessageBoxes boxes;
    Send(WM_COMMAND, VIEW_RELOAD);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0].title, "View a Report");
    EXPECT_EQ(viewer->View().PageCount(), 3);
}

TEST_F(ViewerOn, ClosesByEscape) {
    Press(VK_ESCAPE);
    EXPECT_EQ(viewer->Window(), nullptr);
}

TEST_F(Tess, ViewNeedsAReport) {
    WriteWholeFile(folder.Path("x.frc"), "no report");
    const Outcome outcome = Run("view " + folder.Path("x.frc"));
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "is not a report file")) << outcome.output;
    EXPECT_EQ(Run("view").code, 2u);
}

TEST_F(Tess, ReportAloneOnTheCommandLineIsShown) {
    ASSERT_EQ(Report("airports").code, 0u);
    SetFileAttributesA(folder.Path("airports.frc").c_str(), FILE_ATTRIBUTE_READONLY);
    Running tess(Program(), folder.Path("airports.frc"), folder.Path("view.txt"));
    const HWND window = tess.Window("TessView");
    ASSERT_NE(window, nullptr);
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(tess.Wait().code, 0u);
    SetFileAttributesA(folder.Path("airports.frc").c_str(), FILE_ATTRIBUTE_NORMAL);
}
