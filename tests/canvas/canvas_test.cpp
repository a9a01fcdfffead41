#include "canvas/canvas.h"

#include <gtest/gtest.h>

#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

// A canvas of 200 by 100 pixels.
class Canvas : public testing::Test {
protected:
    Canvas() {
        session->Window = window;
        session->drawing.ScreenDC = GetDC(window);
        session->drawing.LogPixelsX = session->drawing.LogPixelsY = 125;
        session->device.PropertiesMade = 1;
        session->view.PaintEnabled = 1;
        MakeCanvas(session);
    }
    ~Canvas() override {
        ReleaseCanvas(session);
        ReleaseDC(window, session->drawing.ScreenDC);
        DestroyWindow(window);
    }

    SIZE Bitmap() {
        BITMAP bitmap{};
        GetObjectA(session->view.OffscreenBitmap, sizeof bitmap, &bitmap);
        return {bitmap.bmWidth, bitmap.bmHeight};
    }
    // Where a place of the form lies in the window, pixels.
    POINT PixelOf(int x, int y) {
        POINT place{x, y};
        LPtoDP(session->view.MemoryDC, &place, 1);
        return place;
    }

    const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 200, 100, nullptr, nullptr,
                                        nullptr, nullptr);
    BareSession session;
};

} // namespace

TEST_F(Canvas, ViewIsTheWindowInFormUnitsAndOneMore) {
    EXPECT_EQ(session->view.ViewWidth, 401);
    EXPECT_EQ(session->view.ViewHeight, 201);
    EXPECT_EQ(Bitmap().cx, 200);
    EXPECT_EQ(Bitmap().cy, 100);
}

TEST_F(Canvas, BandTakesItsHeightOffTheViewAndLiesAboveTheOrigin) {
    session->view.RulerBandHeight = 60;
    session->view.OriginX = 10;
    session->view.OriginY = 20;
    ResizeCanvas(session);
    EXPECT_EQ(session->view.ViewHeight, 141);
    EXPECT_EQ(PixelOf(10, 20).x, 0);
    EXPECT_EQ(PixelOf(10, 20).y, 30);
    EXPECT_EQ(PixelOf(10, -40).y, 0);
}

TEST_F(Canvas, NothingShowsLeftOfOrAboveThePage) {
    session->view.OriginX = -5;
    session->view.OriginY = 7;
    ApplyOrigin(session);
    const RECT visible = VisibleRectangle(session);
    EXPECT_EQ(visible.left, 0);
    EXPECT_EQ(visible.top, 7);
    EXPECT_EQ(visible.right, 401);
    EXPECT_EQ(visible.bottom, 208);
    EXPECT_EQ(PixelOf(0, 7).x, 0);
    EXPECT_EQ(PixelOf(0, 7).y, 0);
}

TEST_F(Canvas, BitmapIsMadeAnewOnlyWhenItsSizeChanges) {
    const HBITMAP first = session->view.OffscreenBitmap;
    ResizeCanvas(session);
    EXPECT_EQ(session->view.OffscreenBitmap, first);
    session->view.FixedBitmap = {70, 30};
    ResizeCanvas(session);
    EXPECT_EQ(Bitmap().cx, 70);
    EXPECT_EQ(Bitmap().cy, 30);
    EXPECT_EQ(session->view.ViewWidth, 401);
}

TEST_F(Canvas, PartOfTheDrawingComesToTheWindow) {
    ShowWindow(window, SW_SHOW);
    const RECT all = VisibleRectangle(session);
    FillRect(session->view.MemoryDC, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    FillRect(session->drawing.ScreenDC, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    CopyToWindow(session, {100, 40, 200, 80});
    const HDC pixels = session->drawing.ScreenDC;
    EXPECT_EQ(GetPixel(pixels, 150, 60), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(pixels, 50, 60), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(pixels, 150, 100), RGB(255, 255, 255));
}

TEST_F(Canvas, ReleasedCanvasHoldsNothing) {
    ReleaseCanvas(session);
    EXPECT_EQ(session->view.MemoryDC, nullptr);
    EXPECT_EQ(session->view.MemoryDC2, nullptr);
    EXPECT_EQ(session->view.OffscreenBitmap, nullptr);
    ResizeCanvas(session);
    EXPECT_EQ(session->view.OffscreenBitmap, nullptr);
}
