#include "output/preview_paint.h"
#include "tests/support/client_picture.h"
#include "tests/support/failing_call.h"
#include "tests/support/preview_run.h"

namespace {

constexpr uint32_t WHITE = 0xFFFFFF;
constexpr uint32_t BLACK = 0x000000;
constexpr uint32_t RED = 0xFF0000;
constexpr uint32_t GREY = 0x7F7F7F;
constexpr int NEVER = 0; // of a call that is counted and not failed

// What the window shows.
class PreviewPaint : public PreviewRun {
protected:
    int Pixels(int units) const { return MulDiv(units, session->drawing.LogPixelsY, 250); }
    // Brings the shown page's end into view: the row of pixels where it lies.
    int ShowPageEnd() {
        session->view.OriginY = session->report.PageBottomUnits - session->view.ViewHeight / 2;
        Send(WM_PAINT, 0);
        return Pixels(session->report.PageBottomUnits - session->view.OriginY);
    }
    // "solid red", "dotted black" or "none" for the line at the page's end.
    std::string PageEnd() {
        const int row = ShowPageEnd();
        const ClientPicture picture = PictureOf(Window());
        for (int y = row - 1; y <= row + 1; ++y) {
            if (picture.CountInRow(y, RED) == picture.width) return "solid red";
            const int black = picture.CountInRow(y, BLACK);
            const int white = picture.CountInRow(y, WHITE);
            if (black > picture.width / 8 && white > picture.width / 8) return "dotted black";
        }
        return "none";
    }
    void Map(HDC device, int origin_x, int origin_y) const {
        SetMapMode(device, MM_ANISOTROPIC);
        SetWindowExtEx(device, 250, 250, nullptr);
        SetViewportExtEx(device, session->drawing.LogPixelsX, session->drawing.LogPixelsY, nullptr);
        SetWindowOrgEx(device, origin_x, origin_y, nullptr);
    }
    // The shown page as it lies in the window at actual size, without the line at its end.
    ClientPicture PageAlone() {
        return DrawnLike(Window(), [&](HDC device) {
            Map(device, session->view.OriginX, session->view.OriginY);
            PlayMetaFile(device, session->pages.ShownPage);
        });
    }
    std::vector<std::string> StripTexts();
};

std::vector<std::string> strip_texts;
BOOL WINAPI NoteText(HDC, int, int, UINT, const RECT *, LPCSTR text, UINT length, const INT *) {
    strip_texts.emplace_back(text, length);
    return TRUE;
}

std::vector<std::string> PreviewPaint::StripTexts() {
    strip_texts.clear();
    void *real = ReplaceImport("ExtTextOutA", reinterpret_cast<void *>(NoteText));
    tessarine::PaintStatusStrip(session);
    ReplaceImport("ExtTextOutA", real);
    return strip_texts;
}

} // namespace

TEST_F(PreviewPaint, PageEndIsDottedWhileTheRunGoesOn) {
    ASSERT_EQ(Feed(11), 0);
    EXPECT_EQ(PageEnd(), "dotted black");
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
    ASSERT_EQ(Page(), 2);
    EXPECT_EQ(PageEnd(), "dotted black");
}

TEST_F(PreviewPaint, PageEndIsSolidRedOnTheLastPageOfAFinishedReportAlone) {
    Finish(11);
    for (int page = 1; page <= 3; ++page) {
        Scroll(WM_VSCROLL, SB_THUMBTRACK, page * 100 / 3);
        session->view.OriginY = 0;
        while (Page() < page) Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
        EXPECT_EQ(PageEnd(), Page() == 3 ? "solid red" : "dotted black") << Page();
    }
}

TEST_F(PreviewPaint, PageIsShownAtActualSizeAsItIsPlayed) {
    Finish(7);
    Send(WM_PAINT, 0);
    const ClientPicture at_top = PictureOf(Window());
    EXPECT_EQ(Differences(at_top, PageAlone()), 0);
    EXPECT_GT(at_top.Count(BLACK), 100);
    Command(COMMAND_RIGHT);
    Command(COMMAND_LINE_DOWN);
    ASSERT_GT(session->view.OriginX, 0);
    ASSERT_GT(session->view.OriginY, 0);
    EXPECT_EQ(Differences(PictureOf(Window()), PageAlone()), 0);
    EXPECT_GT(Differences(PictureOf(Window()), at_top), 100);
}

TEST_F(PreviewPaint, FirstPageIsOnTheWindowWhileTheRunGoesOn) {
    ASSERT_EQ(Feed(5), 0);
    const ClientPicture before = PictureOf(Window());
    ASSERT_EQ(Feed(1), 0);
    EXPECT_EQ(Differences(PictureOf(Window()), PageAlone()), 0);
    EXPECT_GT(Differences(PictureOf(Window()), before), 100);
}

TEST_F(PreviewPaint, FittedPageIsTheWholeSheetInTheMiddleWithFrameAndShadow) {
    Finish(7);
    Command(COMMAND_FIT);
    const auto &view = session->view;
    const auto &printer = session->printer;
    int height = view.ViewHeight - 25;
    int width = static_cast<int>(height * printer.PaperWidth / printer.PaperHeight);
    ASSERT_LT(width, view.ViewWidth);
    const int left = (view.ViewWidth - width) / 2;
    const int top = (view.ViewHeight - height) / 2;
    const ClientPicture shown = PictureOf(Window());
    const ClientPicture expected = DrawnLike(Window(), [&](HDC device) {
        const int paper_width = static_cast<int>(printer.PaperWidth * 250);
        const int paper_height = static_cast<int>(printer.PaperHeight * 250);
        const int x = left + MulDiv(printer.PrintOffsetX, width, paper_width);
        const int y = top + MulDiv(printer.PrintOffsetY, height, paper_height);
        SaveDC(device);
        SetMapMode(device, MM_ANISOTROPIC);
        SetWindowExtEx(device, paper_width, paper_height, nullptr);
        SetViewportExtEx(device, Pixels(width), Pixels(height), nullptr);
        SetViewportOrgEx(device, Pixels(x), Pixels(y), nullptr);
        PlayMetaFile(device, session->pages.ShownPage);
        RestoreDC(device, -1);
        Map(device, 0, 0);
        POINT corners[2] = {{left, top}, {left + width, top + height}};
        LPtoDP(device, corners, 2);
        SetMapMode(device, MM_TEXT);
        SetWindowOrgEx(device, 0, 0, nullptr);
        for (const int step : {0, 1}) {
            MoveToEx(device, corners[0].x + step, corners[1].y + step, nullptr);
            LineTo(device, corners[1].x + step, corners[1].y + step);
            LineTo(device, corners[1].x + step, corners[0].y + step - 1);
        }
        MoveToEx(device, corners[1].x, corners[0].y, nullptr);
        LineTo(device, corners[0].x, corners[0].y);
        LineTo(device, corners[0].x, corners[1].y);
    });
    EXPECT_LE(Differences(shown, expected), 4); // the ends of the lines
    EXPECT_GT(shown.Count(BLACK), 500);
}

TEST_F(PreviewPaint, FittedSheetOfANarrowWindowFollowsItsWidth) {
    Finish(2);
    SetWindowPos(Window(), nullptr, 0, 0, 250, 500, SWP_NOMOVE | SWP_NOZORDER);
    Send(WM_PAINT, 0);
    Command(COMMAND_FIT);
    const auto &view = session->view;
    const int width = view.ViewWidth - 25;
    const int height =
        static_cast<int>(width * session->printer.PaperHeight / session->printer.PaperWidth);
    const int top = Pixels((view.ViewHeight - height) / 2);
    const ClientPicture shown = PictureOf(Window());
    int highest = 0;
    while (highest < shown.height && !shown.CountInRow(highest, BLACK)) ++highest;
    EXPECT_NEAR(highest, top, 1);
    EXPECT_GE(shown.CountInRow(highest, BLACK), Pixels(width) - 1);
}

TEST_F(PreviewPaint, FittedSheetWithoutWidthIsNotPainted) {
    Finish(2);
    Command(COMMAND_FIT);
    const FailingCall plays("PlayMetaFile", PlayMetaFile, FALSE, 1, NEVER);
    session->view.ViewHeight = 26; // one high, and less than one across
    tessarine::PaintPreview(session);
    EXPECT_EQ(plays.Seen(), 0);
    session->view.ViewHeight = 27;
    tessarine::PaintPreview(session);
    EXPECT_EQ(plays.Seen(), 1);
}

TEST_F(PreviewPaint, ToggleClearsTheAreaAroundTheSheet) {
    Finish(7);
    session->view.OriginY = 100;
    Send(WM_PAINT, 0);
    Command(COMMAND_FIT);
    EXPECT_EQ(session->view.OriginY, 0);
    const ClientPicture shown = PictureOf(Window());
    for (int x = 0; x < 5; ++x)
        for (int y = 0; y < shown.height; ++y) ASSERT_EQ(shown.At(x, y), WHITE) << x << "," << y;
}

TEST_F(PreviewPaint, BitmapHasTheClientsSizeOrFittedAPixelAUnit) {
    Finish(2);
    BITMAP bitmap{};
    RECT client{};
    GetClientRect(Window(), &client);
    GetObjectA(session->view.OffscreenBitmap, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, client.right);
    EXPECT_EQ(bitmap.bmHeight, client.bottom);
    EXPECT_EQ(session->view.ViewWidth, MulDiv(client.right, 250, session->drawing.LogPixelsX) + 1);
    EXPECT_EQ(session->view.ViewHeight,
              MulDiv(client.bottom, 250, session->drawing.LogPixelsY) + 1);
    Command(COMMAND_FIT);
    GetObjectA(session->view.OffscreenBitmap, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, session->report.PageWidthUnits);
    EXPECT_EQ(bitmap.bmHeight, session->report.PageBottomUnits);
}

TEST_F(PreviewPaint, PaintLeavesNothingToPaintAndALaterSizeIsTakenUp) {
    Finish(2);
    InvalidateRect(Window(), nullptr, TRUE);
    UpdateWindow(Window());
    EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE));
    SetWindowPos(Window(), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    InvalidateRect(Window(), nullptr, TRUE);
    UpdateWindow(Window());
    RECT client{};
    GetClientRect(Window(), &client);
    EXPECT_EQ(session->view.ViewWidth, MulDiv(client.right, 250, session->drawing.LogPixelsX) + 1);
    EXPECT_EQ(Differences(PictureOf(Window()), PageAlone()), 0);
}

TEST_F(PreviewPaint, WindowWithoutAClientAreaIsServed) {
    Finish(2);
    SetWindowPos(Window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
    for (int times = 0; times < 2; ++times) {
        Send(WM_PAINT, 0);
        for (const int command : {COMMAND_PAGE_UP, COMMAND_PAGE_DOWN, COMMAND_LINE_UP,
                                  COMMAND_LINE_DOWN, COMMAND_LEFT, COMMAND_RIGHT, COMMAND_FIT})
            Command(command);
    }
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(Open());
}

// ---- the status strip --------------------------------------------------------------------------

TEST_F(PreviewPaint, StripTellsPageAndRecordInTheWordsOfTheRunsPhase) {
    using Texts = std::vector<std::string>;
    ASSERT_EQ(Feed(3), 0);
    EXPECT_EQ(StripTexts(), (Texts{"   Processing Page# 1", "   Processing Record#: 3"}));
    ASSERT_EQ(Feed(4), 0);
    EXPECT_EQ(StripTexts(),
              (Texts{"   Processing Page# 2", "   Processing Record#: 7", "Current Page: 1   "}));
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(StripTexts(), (Texts{"   Last Page: 2", "   Record Count: 7", "Current Page: 1   "}));
    Scroll(WM_VSCROLL, SB_THUMBTRACK, 100);
    EXPECT_EQ(StripTexts().back(), "Current Page: 2   ");
}

TEST_F(PreviewPaint, StripWithoutAHeightIsComposedAndNotShown) {
    Finish(7);
    Send(WM_PAINT, 0);
    const ClientPicture before = PictureOf(Window());
    EXPECT_EQ(StripTexts().size(), 3u);
    tessarine::PaintStatusStrip(session);
    EXPECT_EQ(Differences(PictureOf(Window()), before), 0);
}

TEST_F(PreviewPaint, LayoutThatGivesTheStripAHeightShowsItAboveThePage) {
    Finish(7);
    session->view.RulerBandHeight = 2 * session->device.FontHeight;
    Send(WM_PAINT, 0);
    const int band = Pixels(session->view.RulerBandHeight);
    RECT client{};
    GetClientRect(Window(), &client);
    EXPECT_EQ(session->view.ViewHeight, MulDiv(client.bottom, 250, session->drawing.LogPixelsY) -
                                            session->view.RulerBandHeight + 1);
    const ClientPicture page = DrawnLike(Window(), [&](HDC device) {
        Map(device, 0, 0);
        SetViewportOrgEx(device, 0, band, nullptr);
        PlayMetaFile(device, session->pages.ShownPage);
    });
    const ClientPicture shown = PictureOf(Window());
    for (int y = 0; y < shown.height; ++y) {
        if (y < band)
            EXPECT_GT(shown.CountInRow(y, GREY), shown.width / 2) << y;
        else
            for (int x = 0; x < shown.width; ++x) ASSERT_EQ(shown.At(x, y), page.At(x, y)) << y;
    }
    int text = 0;
    for (int y = 0; y < band; ++y) text += shown.CountInRow(y, BLACK);
    EXPECT_GT(text, 100);
    Command(COMMAND_FIT);
    EXPECT_GT(PictureOf(Window()).CountInRow(band / 2, GREY), shown.width / 2);
}

TEST_F(PreviewPaint, StripIsRefreshedAtEveryFifthAndLaterEveryTenthRecord) {
    std::vector<int> refreshed;
    for (int record = 0; record < 81; ++record) {
        UpdateWindow(Window());
        const FailingCall fills("FillRect", FillRect, 0, 1, NEVER);
        ASSERT_EQ(Feed(1), 0);
        if (fills.Seen()) refreshed.push_back(record);
    }
    EXPECT_EQ(refreshed, (std::vector<int>{0, 5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 60, 70, 80}));
}

TEST(PreviewOfNoWindow, PaintsNothing) {
    MessageBoxes boxes;
    ReportRun run{FiveAPage{}}; // to disk
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    Session *session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    {
        const FailingCall fills("FillRect", FillRect, 0, 1, NEVER);
        const FailingCall copies("BitBlt", BitBlt, FALSE, 1, NEVER);
        const FailingCall valid("ValidateRect", ValidateRect, FALSE, 1, NEVER);
        tessarine::PaintPreview(session);
        tessarine::PaintStatusStrip(session);
        EXPECT_EQ(fills.Seen() + copies.Seen() + valid.Seen(), 0);
    }
    EXPECT_EQ(run.Finish(), 0);
}
