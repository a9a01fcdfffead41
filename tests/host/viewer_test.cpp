// The viewer's window, driven by real messages.
#include "host/view/viewer.h"

#include "host/view/resource_ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/tess_program.h"
#include "tests/support/window_driver.h"

namespace {

class ViewerOn : public Tess, public WindowDriver {
protected:
    void SetUp() override {
        ASSERT_EQ(Report("countries").code, 0u);
        viewer = std::make_unique<Viewer>(folder.Path("countries.frc"));
        SetWindowPos(viewer->Window(), nullptr, 0, 0, 500, 400, SWP_NOZORDER);
        Serve();
    }

    // Serves what waits, as the viewer's own loop does.
    void Serve() {
        ServeMessages([this](MSG *message) { return viewer->Translate(message); });
    }
    void Send(UINT message, WPARAM wParam, LPARAM lParam = 0) {
        WindowDriver::Send(message, wParam, lParam);
        Serve();
    }
    void Type(WPARAM key) {
        Post(WM_KEYDOWN, key);
        Serve();
    }
    std::string Title() const { return WindowText(Window()); }
    HWND Window() const override { return viewer->Window(); }

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
    Type(VK_END);
    EXPECT_EQ(viewer->View().Page(), 3);
    Type(VK_HOME);
    EXPECT_EQ(viewer->View().Page(), 1);
    Type(VK_NEXT); // the whole page is in view
    EXPECT_EQ(viewer->View().Page(), 2);
    Type(VK_SPACE);
    EXPECT_EQ(viewer->View().Page(), 3);
    Type(VK_DOWN);
    EXPECT_EQ(viewer->View().Page(), 3);
    Type(VK_BACK);
    EXPECT_EQ(viewer->View().Page(), 2);
    Type(VK_UP);
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
    Drag({200, 200}, {170, 150});
    Move({10, 10}); // the button is up
    EXPECT_EQ(viewer->View().Sheet().left, before.left - 30);
    EXPECT_EQ(viewer->View().Sheet().top, before.top - 50);
}

TEST_F(ViewerOn, MenuTellsWhatIsPossible) {
    EXPECT_FALSE(MenuEnabled(VIEW_FIRST));
    EXPECT_FALSE(MenuEnabled(VIEW_PREVIOUS));
    EXPECT_TRUE(MenuEnabled(VIEW_NEXT));
    Send(WM_COMMAND, VIEW_LAST);
    EXPECT_TRUE(MenuEnabled(VIEW_FIRST));
    EXPECT_FALSE(MenuEnabled(VIEW_NEXT));
    EXPECT_FALSE(MenuEnabled(VIEW_LAST));
    Send(WM_COMMAND, VIEW_FIT_WIDTH);
    EXPECT_TRUE(MenuChecked(VIEW_FIT_WIDTH));
}

TEST_F(ViewerOn, GoToAsksForAPageAndForcesItIntoTheReport) {
    MessageBoxes boxes;
    boxes.OnDialog("Go to Page", [](DialogDriver dialog) {
        dialog.SetText(GO_TO_PAGE, "99");
        dialog.Send(IDOK);
    });
    Send(WM_COMMAND, VIEW_GO_TO);
    EXPECT_EQ(viewer->View().Page(), 3);
    boxes.OnDialog("Go to Page", [](DialogDriver dialog) {
        dialog.SetText(GO_TO_PAGE, "1");
        dialog.Send(IDCANCEL);
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
    Type(VK_ESCAPE);
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
