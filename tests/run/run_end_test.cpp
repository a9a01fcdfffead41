#include <gtest/gtest.h>

#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "tests/support/failing_call.h"
#include "tests/support/message_boxes.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"
#include "tests/support/report_run.h"

namespace {

using Lines = std::vector<std::string>;

struct OneLine : FormBuilder {
    explicit OneLine(int height = 50) {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, height);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

// Label mode for as long as it stands: three labels across, ten down.
struct LabelMode {
    LabelMode() {
        data.LabelForm = &on;
        tessarine::SetCRepData(&data);
    }
    ~LabelMode() { tessarine::RemoveCRepData(&data); }
    uint32_t on = 1;
    HostData data{};
};

struct LabelSheet : FormBuilder {
    LabelSheet() {
        header.LabelType = 1;
        header.LeftMargin = header.RightMargin = header.TopMargin = header.BottomMargin = 0.0F;
        LabelGeometry &sheet = header.LabelGeometry;
        sheet.PageWidth = 8.5F;
        sheet.PageHeight = 11.0F;
        sheet.LabelHeight = sheet.VerticalPitch = 1.0F;
        sheet.LabelWidth = sheet.HorizontalPitch = 2.5F;
        sheet.LabelsAcross = 3;
        sheet.LabelsDown = 10;
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 250);
        items[SECTION_DETAIL_1][0].x = 62;
        items[SECTION_DETAIL_1][0].width = 625;
        FieldItem(SECTION_DETAIL_1, 80, 0, 500, 50, name);
    }
};

Lines FramesOf(const ReportRun &run) {
    return LinesWith(DrawingOf(PagesOf(run.Report()).at(0)), {"round"});
}

} // namespace

TEST(RunEnd, PageCountMayBeLeftOut) {
    MessageBoxes boxes;
    ReportRun run{OneLine{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Feed({{"NAME", "a"}}), 0);
    EXPECT_EQ(tessarine::RepExit(run.params.SessionId, 0, nullptr), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), Lines{"a"});
}

TEST(RunEnd, RecordCountIsToldUnlessSilentAlsoWhenItIsZero) {
    MessageBoxes boxes;
    ReportRun run{OneLine{}};
    run.params.Silent = 0;
    ASSERT_EQ(run.Run({}), 0);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"Report Over", "0 Record(s) Printed", {IDOK}}));
    ReportRun second{OneLine{}};
    second.params.Silent = 0;
    ASSERT_EQ(second.Run({{{"NAME", "a"}}}), 0);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"Report Over", "1 Record(s) Printed", {IDOK}}));
}

TEST(RunEnd, ReportFooterThatDoesNotFitGoesToANewPageWithHeaderAndFooter) {
    OneLine form(500);
    form.Section(SECTION_PAGE_HEADER, 50);
    form.Label(SECTION_PAGE_HEADER, 200, 0, 400, 50, "head");
    form.Section(SECTION_REPORT_FOOTER, 500);
    form.Label(SECTION_REPORT_FOOTER, 200, 0, 400, 50, "total");
    form.Section(SECTION_PAGE_FOOTER, 50);
    form.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"NAME", "1"}}, {{"NAME", "2"}}, {{"NAME", "3"}}, {{"NAME", "4"}}}), 0)
        << boxes.LastText();
    EXPECT_EQ(run.page_count, 2);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"head", "1", "2", "3", "4", "foot"}));
    EXPECT_EQ(PageWords(run.Report(), 1), (Lines{"head", "total", "foot"}));
}

TEST(RunEnd, FootersOfAllGroupsPrintFromTheInnermostOut) {
    OneLine form;
    form.Section(SECTION_SORT_FOOTER_1, 50);
    form.Label(SECTION_SORT_FOOTER_1, 200, 0, 400, 50, "outer");
    form.Section(SECTION_SORT_FOOTER_1 - 1, 50);
    form.Label(SECTION_SORT_FOOTER_1 - 1, 200, 0, 400, 50, "inner");
    form.Break(0, 0, SECTION_SORT_HEADER_1);
    form.Break(0, 0, SECTION_SORT_HEADER_1 + 1);
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"a", "inner", "outer"}));
}

// Only the end computes what stands in the report footer; the host has no second try.
TEST(RunEnd, FailureInTheClosingSectionsGivesItsCodeOnceAndTheSessionIsReleased) {
    OneLine form;
    const int zero = form.Constant("0", TYPE_NUMERIC, 0);
    const int number = form.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    form.fields[static_cast<size_t>(number)].SummaryType = SUMMARY_TOTAL;
    const int ratio = form.Field(FIELD_CALC, "CALC->RATIO", TYPE_NUMERIC);
    FormBuilder::Store({number, 506, zero}, form.fields[static_cast<size_t>(ratio)].FieldTokens);
    form.Section(SECTION_REPORT_FOOTER, 50);
    form.FieldItem(SECTION_REPORT_FOOTER, 200, 0, 400, 50, ratio);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    ASSERT_EQ(run.Feed({{"NAME", "a"}, {"N", "1"}}), 0) << boxes.LastText();
    const int slot = static_cast<int>(run.params.SessionId);
    EXPECT_EQ(run.Finish(), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Error In Calculation Field: CALC->RATIO", {IDOK}}));
    EXPECT_EQ(run.page_count, -1);
    EXPECT_EQ(tessarine::GetSessionPointer(nullptr, slot), nullptr);
    EXPECT_EQ(run.Finish(), CODE_NO_SESSION);
    EXPECT_FALSE(tessarine::FileStands(run.params.OutputFile)); // half-written
}

namespace {

// How many files a finished page or the end of the report leaves in the run's folder beside its
// form.
int FilesBeside(const ReportRun &run) {
    const std::string form = run.params.FormFile;
    const std::string pattern = form.substr(0, form.rfind('\\')) + "\\*";
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    int files = -1;
    do {
        files += !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return files;
}

} // namespace

TEST(RunEnd, FullDiskIsToldOnceAndNothingOfTheRunIsLeft) {
    MessageBoxes boxes;
    for (const char device : {'F', 'S'}) {
        ReportRun run{OneLine{2400}}; // a record a page
        run.params.Device = device;
        run.params.Silent = 0;
        run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
        const int sessions = OpenSessions();
        ASSERT_EQ(run.Start(), 0) << boxes.LastText();
        boxes.OnDialog("Printing to File...", [](HWND) {});
        boxes.Clear();
        const HWND window = tessarine::GetSessionPointer(nullptr, run.params.SessionId)->Window;
        const FailingCall full("CopyMetaFileA", CopyMetaFileA, nullptr, 2, EVERY_CALL);
        int code = 0;
        for (int record = 0; record < 5 && !code; ++record) code = run.Feed({{"NAME", "a"}});
        EXPECT_EQ(code, CODE_FILE);
        EXPECT_EQ(run.Finish(), CODE_FILE);
        EXPECT_EQ(boxes.Texts(), Lines{"Error Copying Meta File(TransferMetaFile)"});
        EXPECT_EQ(run.Finish(), CODE_NO_SESSION);
        if (device == 'S') SendMessageA(window, WM_CLOSE, 0, 0); // its whole pages could be read
        EXPECT_EQ(OpenSessions(), sessions);
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(FilesBeside(run), 0) << device;
    }
}

TEST(RunEnd, DiskThatIsFullAtTheEndAloneEndsTheRunToo) {
    MessageBoxes boxes;
    for (const char device : {'F', 'S'}) {
        ReportRun run{OneLine{}};
        run.params.Device = device;
        run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
        ASSERT_EQ(run.Start(), 0) << boxes.LastText();
        ASSERT_EQ(run.Feed({{"NAME", "a"}}), 0);
        boxes.Clear();
        {
            const FailingCall full("WriteFile", WriteFile, FALSE, 1, EVERY_CALL);
            EXPECT_EQ(run.Finish(), CODE_FILE);
        }
        EXPECT_EQ(boxes.Texts(), Lines{"Error writing the output file(CopyFileData a)"});
        const Session *preview = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
        EXPECT_EQ(preview != nullptr, device == 'S');
        if (preview) SendMessageA(preview->Window, WM_CLOSE, 0, 0);
        EXPECT_EQ(tessarine::GetSessionPointer(nullptr, run.params.SessionId), nullptr);
        EXPECT_EQ(FilesBeside(run), 0) << device;
    }
}

TEST(RunEnd, NoSectionClosesAReportWithoutRecords) {
    OneLine form;
    form.Section(SECTION_REPORT_FOOTER, 50);
    form.Label(SECTION_REPORT_FOOTER, 200, 0, 400, 50, "total");
    form.Section(SECTION_PAGE_FOOTER, 50);
    form.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    MessageBoxes boxes;
    ReportRun run(form);
    run.params.Device = 'S';
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    ASSERT_EQ(run.Run({}), 0) << boxes.LastText();
    Session *session =
        tessarine::GetSessionPointer(nullptr, static_cast<int>(run.params.SessionId));
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(PageWords(ReadWholeFile(session->pages.ReportPath), 0), Lines{});
    SendMessageA(session->Window, WM_CLOSE, 0, 0);
}

TEST(RunEnd, FillCompletesTheSheetWithEmptyFrames) {
    MessageBoxes boxes;
    const LabelMode mode;
    ReportRun run{LabelSheet{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    for (const char *name : {"a", "b", "c", "d"}) ASSERT_EQ(run.Feed({{"NAME", name}}), 0);
    ASSERT_EQ(run.Finish(1), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"a", "b", "c", "d"}));
    const Lines frames = FramesOf(run);
    ASSERT_EQ(frames.size(), 26u); // 30 labels, of which four were printed without a frame
    // Two complete the second row, which begins at 250 less the printer's offset of 63.
    EXPECT_EQ(frames[0], "round 562,187 1187,437 by 62,62");
    EXPECT_EQ(frames[1], "round 1187,187 1812,437 by 62,62");
    EXPECT_EQ(frames[2], "round -63,437 562,687 by 62,62");
    EXPECT_EQ(frames[25], "round 1187,2187 1812,2437 by 62,62");
}

TEST(RunEnd, SheetEndsWithoutFramesWhenItIsNotFilled) {
    MessageBoxes boxes;
    const LabelMode mode;
    ReportRun run{LabelSheet{}};
    ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0) << boxes.LastText();
    EXPECT_TRUE(FramesOf(run).empty());
}

TEST(RunEnd, FootersOfGroupsHaveNoLabelsFrame) {
    const LabelMode mode;
    LabelSheet form;
    form.Section(SECTION_SORT_FOOTER_1, 50);
    form.Break(0, 0, SECTION_SORT_HEADER_1);
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0);
    EXPECT_TRUE(FramesOf(run).empty());
}

TEST(RunEnd, FillEndsThoughTheLabelsFilterRefuses) {
    LabelSheet form;
    const int no = form.Constant(".F.", TYPE_LOGICAL, 0);
    FormBuilder::Store({no}, form.sections[SECTION_DETAIL_1].SectionFilter);
    MessageBoxes boxes;
    const LabelMode mode;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    ASSERT_EQ(run.Feed({{"NAME", "a"}}), 0);
    EXPECT_EQ(run.Finish(1), 0);
}

TEST(RunEnd, FillEndsThoughARowOfLabelsTakesNoRoom) {
    LabelSheet form;
    form.header.TopMargin = 1.0F;
    form.header.LabelGeometry.VerticalPitch = 0.0F;
    MessageBoxes boxes;
    const LabelMode mode;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Finish(1), 0);
    EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
}

// Each of its rows would begin another sheet.
TEST(RunEnd, FillStaysOnTheSheetOfALabelThatAdvancesThePage) {
    LabelSheet form;
    form.sections[SECTION_DETAIL_1].SectionFlags = SECTION_ADVANCE_BEFORE;
    MessageBoxes boxes;
    const LabelMode mode;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    for (const char *name : {"a", "b", "c", "d"}) ASSERT_EQ(run.Feed({{"NAME", name}}), 0);
    ASSERT_EQ(run.Finish(1), 0) << boxes.LastText();
    ASSERT_EQ(run.page_count, 2);
    EXPECT_EQ(PageWords(run.Report(), 1), Lines{"d"});
    EXPECT_EQ(LinesWith(DrawingOf(PagesOf(run.Report()).at(1)), {"round"}).size(), 2u);
}

TEST(RunEnd, LastPageFooterStandsAtTheBodysBottomUnderAHalfFullRow) {
    OneLine form;
    form.sections[SECTION_DETAIL_1].Across = 3;
    form.items[SECTION_DETAIL_1][0].width = 600;
    form.Section(SECTION_PAGE_FOOTER, 50);
    form.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot").ItemFlags = FLAG_LEFT | FLAG_TOP;
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    const int bottom = tessarine::GetSessionPointer(nullptr, run.params.SessionId)->run.BodyBottom;
    ASSERT_EQ(run.Feed({{"NAME", "a"}}), 0);
    ASSERT_EQ(run.Finish(), 0);
    const std::string foot = PageLines(run.Report(), 0).back();
    EXPECT_NE(foot.find("," + std::to_string(bottom) + " foot"), std::string::npos) << foot;
}

TEST(RunEnd, SessionsAndBlocksAreGivenBack) {
    MessageBoxes boxes;
    {
        ReportRun warm{OneLine{}};
        ASSERT_EQ(warm.Run({{{"NAME", "a"}}}), 0) << boxes.LastText();
    }
    const int blocks = tessarine::LiveBlocks();
    for (int time = 0; time < 20; ++time) {
        ReportRun run{OneLine{}};
        ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0) << boxes.LastText();
        EXPECT_EQ(tessarine::GetSessionPointer(nullptr, run.params.SessionId), nullptr);
    }
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
}

TEST(RunSetUp, PageFooterTallerThanThePageIsToldAndGives10) {
    OneLine form;
    form.Section(SECTION_PAGE_FOOTER, 2600);
    form.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    MessageBoxes boxes;
    ReportRun run(form);
    const int before = OpenSessions();
    EXPECT_EQ(run.Start(), CODE_PRINTER);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"", "Page Too Small!", {IDOK}}));
    EXPECT_EQ(OpenSessions(), before + 1); // the session stays as it is
}

// The tables of such a run stand already.
TEST(RunSetUp, StartThatFailedLateIsNoSessionToTheHost) {
    OneLine small;
    small.Section(SECTION_PAGE_FOOTER, 2600);
    small.Label(SECTION_PAGE_FOOTER, 200, 0, 400, 50, "foot");
    OneLine filter;
    filter.Filter({503});
    MessageBoxes boxes;
    for (const auto &[form, code] :
         {std::pair<const OneLine &, int>{small, CODE_PRINTER}, {filter, CODE_EXPRESSION}}) {
        ReportRun run(form);
        ASSERT_EQ(run.Start(), code);
        boxes.Clear();
        for (int slot = 0; slot < OpenSessions(); ++slot) {
            EXPECT_EQ(tessarine::RepRec(slot, 0), CODE_NO_SESSION);
            EXPECT_EQ(tessarine::RepExit(slot, 0, nullptr), CODE_NO_SESSION);
        }
        EXPECT_TRUE(boxes.Log().empty());
    }
}

TEST(RunSetUp, ExpressionsThatDoNotCompileNameTheirKind) {
    MessageBoxes boxes;
    OneLine filter;
    filter.Filter({503});
    EXPECT_EQ(ReportRun(filter).Start(), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Invalid Report Selection Expression!", {IDOK}}));
    OneLine section;
    FormBuilder::Store({503}, section.sections[SECTION_DETAIL_1].SectionFilter);
    EXPECT_EQ(ReportRun(section).Start(), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Invalid Section Selection Expression!", {IDOK}}));
    OneLine calculation;
    const int calc = calculation.Field(FIELD_CALC, "CALC->X", TYPE_NUMERIC);
    FormBuilder::Store({503}, calculation.fields[static_cast<size_t>(calc)].FieldTokens);
    EXPECT_EQ(ReportRun(calculation).Start(), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Invalid Field Calculation Expression!", {IDOK}}));
}

TEST(RunSetUp, LabelFormInAReportRunIsRefusedSilentlyWith101) {
    MessageBoxes boxes;
    EXPECT_EQ(ReportRun{LabelSheet{}}.Start(), CODE_NOT_A_REPORT_FORM);
    const LabelMode mode;
    EXPECT_EQ(ReportRun{OneLine{}}.Start(), CODE_NOT_A_LABEL_FORM);
    EXPECT_TRUE(boxes.Log().empty());
}

namespace {

class EndOfAPreview : public PreviewRun {};

} // namespace

TEST_F(EndOfAPreview, CloseBehindAFailureOfTheEndWaitsForItsAnswer) {
    ASSERT_EQ(Feed(2), 0);
    bool open_behind = false;
    boxes.OnDialog("Fatal Error", [&](DialogDriver box) {
        Send(WM_CLOSE, 0);
        open_behind = Open();
        box.Press(IDOK);
    });
    const FailingCall failing("CopyMetaFileA", CopyMetaFileA, nullptr);
    EXPECT_EQ(run.Finish(), CODE_FILE);
    EXPECT_TRUE(open_behind);
    EXPECT_FALSE(Open());
    EXPECT_EQ(FilesOfPages(), 0);
}

TEST(RunEnd, SessionOfAPreviewStandsUntilItsWindowIsClosed) {
    MessageBoxes boxes;
    const HWND parent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                        nullptr, nullptr, nullptr);
    ReportRun run{OneLine{}};
    run.params.Device = 'S';
    run.params.Silent = 0;
    run.params.ParentWindow = parent;
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0) << boxes.LastText();
    const int slot = static_cast<int>(run.params.SessionId);
    EXPECT_EQ(tessarine::RepGetParent(nullptr, slot), parent);
    SendMessageA(tessarine::GetSessionPointer(nullptr, slot)->Window, WM_CLOSE, 0, 0);
    EXPECT_EQ(tessarine::RepGetParent(nullptr, slot), nullptr);
    EXPECT_TRUE(boxes.Log().empty()); // no count of records in a run on the screen
    DestroyWindow(parent);
}
