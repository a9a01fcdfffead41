#include "device/device_properties.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "frame/session_table.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"
#include "tests/support/report_run.h"
#include "tests/support/system_objects.h"

using namespace tessarine;

namespace {

struct OneLine : FormBuilder {
    OneLine() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 50);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

class DeviceProperties : public FormSession {
protected:
    // Fails each call of a routine in turn: the fatal texts that came.
    template <typename Result, typename... Args>
    std::set<std::string> TextsOf(const char *name, Result(WINAPI *routine)(Args...), int calls) {
        std::set<std::string> texts;
        for (int number = 1; number <= calls; ++number) {
            End();
            boxes.Clear();
            const FailingCall failing(name, routine, Result{}, number);
            const int code = StartOn(form);
            for (const BoxRecord &box : boxes.Log()) {
                if (box.title != "Fatal Error") continue;
                EXPECT_EQ(code, CODE_DISPLAY) << box.text;
                EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
                texts.insert(box.text);
            }
        }
        End();
        return texts;
    }
    OneLine form;
};

using Texts = std::set<std::string>;

} // namespace

TEST_F(DeviceProperties, EachResourceThatCannotBeMadeIsFatalWithItsWords) {
    EXPECT_EQ(TextsOf("GetDC", GetDC, 2), (Texts{"Unable to retrieve a Display Context.",
                                                 "Unable to allocate a Display Context."}));
    EXPECT_EQ(TextsOf("CreateFontIndirectA", CreateFontIndirectA, 1),
              Texts{"Error Creating Font(InitDeviceProp)"});
    EXPECT_TRUE(TextsOf("SelectObject", SelectObject, 6).count("Unable to select the font."));
    EXPECT_TRUE(TextsOf("GetTextMetricsA", GetTextMetricsA, 3)
                    .count("Unable to get text metric for the font."));
    EXPECT_EQ(TextsOf("CreateCompatibleDC", CreateCompatibleDC, 2),
              Texts{"Unable to create compatible DC"});
    EXPECT_EQ(TextsOf("CreateSolidBrush", CreateSolidBrush, 3), Texts{"Unable to create brushes."});
    EXPECT_EQ(TextsOf("CreatePen", CreatePen, 3), Texts{"Unable to create pens."});
}

TEST_F(DeviceProperties, ContextsCountFormUnits) {
    ASSERT_EQ(StartOn(form), 0);
    for (const HDC context :
         {session->drawing.ScreenDC, session->view.MemoryDC, session->view.MemoryDC2}) {
        EXPECT_EQ(GetMapMode(context), MM_ANISOTROPIC);
        SIZE window{};
        SIZE view{};
        GetWindowExtEx(context, &window);
        GetViewportExtEx(context, &view);
        EXPECT_EQ(window.cx, 250);
        EXPECT_EQ(window.cy, 250);
        EXPECT_EQ(view.cx, session->drawing.LogPixelsX);
        EXPECT_EQ(view.cy, session->drawing.LogPixelsY);
    }
    EXPECT_EQ(GetBkMode(session->drawing.ScreenDC), OPAQUE);
}

TEST_F(DeviceProperties, ColoursBrushesAndPensAreThoseOfTheHouse) {
    ASSERT_EQ(StartOn(form), 0);
    const DeviceState &device = session->device;
    EXPECT_EQ(session->palette.ForeColor, 0u);
    EXPECT_EQ(session->palette.BackColor, 0xFFFFFFu);
    EXPECT_EQ(session->palette.GreyColor, 0x7F7F7Fu);
    EXPECT_EQ(session->palette.GroupColor, 0x0000FFu);
    EXPECT_EQ(session->palette.TealColor, 0x7F7F00u);
    LOGBRUSH brush{};
    GetObjectA(device.GreyBrush, sizeof brush, &brush);
    EXPECT_EQ(brush.lbColor, 0x7F7F7Fu);
    LOGPEN pen{};
    GetObjectA(device.DotPen, sizeof pen, &pen);
    EXPECT_EQ(pen.lopnStyle, static_cast<UINT>(PS_DOT));
    EXPECT_EQ(pen.lopnColor, 0u);
    GetObjectA(device.GroupPen, sizeof pen, &pen);
    EXPECT_EQ(pen.lopnStyle, static_cast<UINT>(PS_SOLID));
    EXPECT_EQ(pen.lopnColor, 0x0000FFu);
}

TEST_F(DeviceProperties, DefaultFontIsElevenPointsInFormUnits) {
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    EXPECT_EQ(session->form.Fonts[0].LogFont.lfHeight, -(11 * 250 / 72));
    EXPECT_STREQ(session->form.Fonts[0].LogFont.lfFaceName, "Courier New");
    EXPECT_GT(session->device.FontHeight, 0);
}

TEST_F(DeviceProperties, DesignerAloneHasTheCursorsOfDragging) {
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(session->device.CrossCursor, LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(session->device.SizeWECursor, LoadCursorA(nullptr, IDC_SIZEWE));
    EXPECT_EQ(session->device.SizeNSCursor, LoadCursorA(nullptr, IDC_SIZENS));
    EXPECT_EQ(session->device.SizeNESWCursor, LoadCursorA(nullptr, IDC_SIZENESW));
    EXPECT_EQ(session->device.SizeNWSECursor, LoadCursorA(nullptr, IDC_SIZENWSE));
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    EXPECT_EQ(session->device.CrossCursor, nullptr);
    EXPECT_NE(session->device.WaitCursor, nullptr);
    EXPECT_NE(session->device.ArrowCursor, nullptr);
}

TEST_F(DeviceProperties, ClipboardFormatIsTheWindowsOwn) {
    ASSERT_EQ(StartOn(form), 0);
    char expected[32];
    char name[32] = "";
    std::snprintf(expected, sizeof expected, "RepClip%x",
                  static_cast<unsigned>(reinterpret_cast<UINT_PTR>(session->Window)));
    GetClipboardFormatNameA(session->device.ClipFormat, name, sizeof name);
    EXPECT_STREQ(name, expected);
}

// ---- leaks -------------------------------------------------------------------------------------

namespace {

class DrawingObjects : public testing::TestWithParam<char> {};

int RunOnce(char device) {
    ReportRun run{OneLine{}};
    run.params.Device = device;
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    run.params.WindowWidth = run.params.WindowHeight = 300;
    if (const int code = run.Run({{{"NAME", "a"}}, {{"NAME", "b"}}})) return code;
    if (Session *session = GetSessionPointer(nullptr, run.params.SessionId))
        SendMessageA(session->Window, WM_CLOSE, 0, 0);
    return GetSessionPointer(nullptr, run.params.SessionId) ? -1 : 0;
}

} // namespace

TEST_P(DrawingObjects, RunGivesAllOfThemBack) {
    MessageBoxes boxes;
    for (int time = 0; time < 2; ++time) ASSERT_EQ(RunOnce(GetParam()), 0) << boxes.LastText();
    const int before = CountGdiObjects();
    const int user_before = CountUserObjects();
    ASSERT_GT(before, 0);
    for (int time = 0; time < 5; ++time) ASSERT_EQ(RunOnce(GetParam()), 0) << boxes.LastText();
    EXPECT_LE(CountGdiObjects(), before + 1);
    EXPECT_LE(CountUserObjects(), user_before);
}

INSTANTIATE_TEST_SUITE_P(Devices, DrawingObjects, testing::Values('F', 'S', 'P'));

TEST(DrawingObjectCount, SeesAPenComeAndGo) {
    const int before = CountGdiObjects();
    const HPEN pen = CreatePen(PS_SOLID, 3, 0x123456);
    EXPECT_EQ(CountGdiObjects(), before + 1);
    DeleteObject(pen);
    EXPECT_EQ(CountGdiObjects(), before);
}

TEST(UserObjectCount, SeesAWindowAndAMenuComeAndGo) {
    const int before = CountUserObjects();
    const HMENU menu = CreateMenu();
    EXPECT_EQ(CountUserObjects(), before + 1);
    const HWND window =
        CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    EXPECT_GE(CountUserObjects(), before + 2);
    DestroyWindow(window);
    DestroyMenu(menu);
    EXPECT_LE(CountUserObjects(), before + 1); // the first window brings one of the system's own
}

TEST_F(DeviceProperties, SetUpThatFailedLeavesNoDrawingObjectsBehindItsClose) {
    const auto fail = [&] {
        TextsOf("CreateCompatibleDC", CreateCompatibleDC, 2);
        TextsOf("CreateSolidBrush", CreateSolidBrush, 3);
        TextsOf("CreatePen", CreatePen, 3);
        TextsOf("GetTextMetricsA", GetTextMetricsA, 2);
    };
    fail(); // the system keeps objects of the first box
    const int before = CountGdiObjects();
    for (int time = 0; time < 3; ++time) fail();
    EXPECT_LE(CountGdiObjects(), before + 1);
}
