// How a page ends and what stands at the top of the next.
#include "commands.h"
#include "frame/session_table.h"
#include "output/preview_window.h"
#include "run/page_break.h"
#include "run/sections.h"
#include "tests/support/composition.h"
#include "tests/support/page_texts.h"

using tessarine::PageBreak;
using tessarine::PrintSection;

namespace {

using Lines = std::vector<std::string>;

class PageBreaks : public Composition {
protected:
    PageBreaks() { StartFile(); }

    // Bands with their names for the page's edges, two groups and a row.
    void AddBands() {
        Band(SECTION_PAGE_HEADER, 50, "page head");
        Band(SECTION_REPORT_HEADER, 50, "report head");
        Band(SECTION_SORT_HEADER_1, 50, "title 1", SECTION_REPRINT);
        Band(SECTION_SORT_HEADER_1 + 1, 50, "title 2");
        Band(SECTION_SORT_HEADER_1 + 2, 50, "title 3", SECTION_REPRINT);
        Band(SECTION_DETAIL_1, 50, "row");
        Band(SECTION_SORT_FOOTER_1, 50, "total");
        Band(SECTION_REPORT_FOOTER, 50, "end");
        Band(SECTION_PAGE_FOOTER, 50, "page foot");
        const int field = NumberField(1);
        for (int level = 0; level < 3; ++level) Break(field, SECTION_SORT_HEADER_1 + level);
    }
    // A footer with a picture of the host, whose routine stops the run.
    void StopAtPageEnd() {
        Section(SECTION_PAGE_FOOTER, 50);
        FieldItem(0, 0, 50, 50, session.AddField(FIELD_DATA, "PICTURE", TYPE_PICTURE));
        session->RunBlock.PictureProc = StopRun;
    }

private:
    static int32_t __stdcall StopRun(HDC, int32_t, int32_t, int32_t, const int32_t *, int32_t id) {
        tessarine::session_table.SessionTable[id]->report.CancelState = tessarine::CANCEL_STOP;
        return 1;
    }
};

} // namespace

TEST_F(PageBreaks, CancelledRunEndsNoPage) {
    AddBands();
    session->report.CancelState = tessarine::CANCEL_STOP;
    EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 1);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.CurrentY, 100);
}

TEST_F(PageBreaks, PageWithNothingOnItIsNotEnded) {
    AddBands();
    run.PageFresh = 1;
    EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 0);
    EXPECT_EQ(session->report.PageCount, 1);
}

TEST_F(PageBreaks, SectionOfAPageBreakStartsNoOther) {
    AddBands();
    run.InPageBreak = 1;
    EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.InPageBreak, 1);
}

TEST_F(PageBreaks, FooterStandsAtTheBodysBottomAndHeaderAtTheTop) {
    Band(SECTION_PAGE_HEADER, 50, "page head");
    Band(SECTION_PAGE_FOOTER, 50, "page foot");
    run.CurrentY = 300;
    EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 1);
    EXPECT_EQ(PageMarks(0), (Lines{"1000 page foot"}));
    EXPECT_EQ(Marks(), (Lines{"100 page head"}));
    EXPECT_EQ(run.CurrentY, 150);
    EXPECT_EQ(run.InPageBreak, 0);
    EXPECT_EQ(run.PageFresh, 1);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_EQ(run.PageNumber, 2);
}

TEST_F(PageBreaks, DetailRowIsTheFirstOfItsPageAgain) {
    run.FirstOnPage = 0;
    run.FirstInGroup = 0;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(run.FirstOnPage, 1);
    EXPECT_EQ(run.FirstInGroup, 0);
}

struct TopRow {
    int section;
    Lines top;
};

class PageTops : public PageBreaks, public testing::WithParamInterface<TopRow> {};

TEST_P(PageTops, BreakOfASectionPrintsHeaderAndTitles) {
    AddBands();
    PageBreak(session, GetParam().section);
    EXPECT_EQ(PageMarks(0), (Lines{"1000 page foot"}));
    EXPECT_EQ(Marks(), GetParam().top);
}

static const Lines with_titles = {"100 page head", "150 title 1", "200 title 3"};
static const Lines header_alone = {"100 page head"};

INSTANTIATE_TEST_SUITE_P(All, PageTops,
                         testing::Values(TopRow{SECTION_REPORT_HEADER, header_alone},
                                         TopRow{SECTION_SORT_HEADER_1, header_alone},
                                         TopRow{SECTION_SORT_HEADER_9, header_alone},
                                         TopRow{SECTION_DETAIL_1, with_titles},
                                         TopRow{SECTION_DETAIL_9, with_titles},
                                         TopRow{SECTION_SORT_FOOTER_9, with_titles},
                                         TopRow{SECTION_SORT_FOOTER_1, with_titles},
                                         TopRow{SECTION_REPORT_FOOTER, header_alone},
                                         TopRow{SECTION_PAGE_FOOTER, header_alone}));

TEST_F(PageBreaks, SectionThatBrokePrintsBeneathTheTitles) {
    AddBands();
    run.CurrentY = 980;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title 1", "200 title 3", "250 row"}));
}

TEST_F(PageBreaks, TitleWhoseFilterRefusesIsNotReprinted) {
    AddBands();
    Filter(SECTION_SORT_HEADER_1, {Constant(0)});
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title 3"}));
}

TEST_F(PageBreaks, TrialPrintsNoHeadersOrTitles) {
    AddBands();
    run.TrialMode = 1;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_TRUE(Marks().empty());
    EXPECT_EQ(run.CurrentY, 100);
}

TEST_F(PageBreaks, ReportHeaderThatComesFirstHasNoPageHeaderAboveIt) {
    AddBands();
    session->form.Header.FormFlags = FORM_REPORT_HEADER_FIRST;
    PageBreak(session, SECTION_REPORT_HEADER);
    EXPECT_TRUE(Marks().empty());
    EXPECT_EQ(PageMarks(0), (Lines{"1000 page foot"}));
}

TEST_F(PageBreaks, ReportHeaderOnItsOwnPageHasNoHeaderOrFooterAndTheNextPageHasBoth) {
    AddBands();
    session->form.Header.FormFlags = FORM_REPORT_HEADER_FIRST;
    session->form.Sections[SECTION_REPORT_HEADER].SectionFlags = SECTION_ADVANCE_AFTER;
    run.PageFresh = 1;
    PrintSection(session, SECTION_REPORT_HEADER, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(PageMarks(0), (Lines{"100 report head"}));
    EXPECT_EQ(PageMarks(1),
              (Lines{"100 page head", "150 title 1", "200 title 3", "250 row", "1000 page foot"}));
}

TEST_F(PageBreaks, OwnPageOfTheReportHeaderNeedsBothFlags) {
    AddBands();
    session->form.Sections[SECTION_REPORT_HEADER].SectionFlags = SECTION_ADVANCE_AFTER;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(PageMarks(0), (Lines{"1000 page foot"}));
}

TEST_F(PageBreaks, NumberStartsAnewAfterABreakThatResetsItAndPagesGoOnCounting) {
    run.PageNumber = 5;
    session->report.PageCount = 1;
    run.ResetPageNumber = 1;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(run.PageNumber, 1);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_EQ(run.ResetPageNumber, 0);
    run.PageFresh = 0;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(run.PageNumber, 2);
    EXPECT_EQ(session->report.PageCount, 3);
}

TEST_F(PageBreaks, PageFieldTakesTheNewNumberBeforeTheHeaderPrints) {
    const int page = session.AddField(FIELD_SYSTEM, "SYS->PAGE", TYPE_NUMERIC);
    Field(page).TableIndex = SYSTEM_PAGE;
    Field(page).LongValue = 1;
    Field(page).NegativePrefix[0] = 0;
    Section(SECTION_PAGE_HEADER, 50);
    FieldItem(0, 0, 400, 40, page);
    Section(SECTION_PAGE_FOOTER, 50);
    FieldItem(0, 0, 400, 40, page);
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(PageMarks(0), (Lines{"1000 1"}));
    EXPECT_EQ(Marks(), (Lines{"100 2"}));
    EXPECT_EQ(+run.InputTable[page].LongValue, 2);
}

// ---- values ----

namespace {

struct PageSummary {
    int type;
    int flags;
    int section;
    int in_use;
    int32_t expected;
};

} // namespace

TEST_F(PageBreaks, SummariesOfThePageFooterAreThoseOfThePage) {
    constexpr PageSummary rows[] = {
        {SUMMARY_TOTAL, 0, SECTION_PAGE_FOOTER, 1, 0},
        {SUMMARY_COUNT, 0, SECTION_PAGE_FOOTER, 1, 0},
        {SUMMARY_MAX, 0, SECTION_PAGE_FOOTER, 1, 9},
        {SUMMARY_MIN, 0, SECTION_PAGE_FOOTER, 1, 9},
        {SUMMARY_TOTAL, FIELD_RETAIN, SECTION_PAGE_FOOTER, 1, 70},
        {SUMMARY_TOTAL, 0, SECTION_SORT_FOOTER_1, 1, 70},
        {SUMMARY_TOTAL, 0, SECTION_PAGE_FOOTER, 0, 70},
    };
    for (const PageSummary &row : rows) {
        const int number = NumberField(3);
        FieldRecord &field = Field(number);
        field.SummaryType = static_cast<int16_t>(row.type);
        field.FieldFlags = static_cast<uint16_t>(row.flags);
        field.SummarySection = static_cast<int16_t>(row.section);
        field.InUse = static_cast<uint16_t>(row.in_use);
        field.LongSummary = 70;
        field.DoubleSummary = 70.0;
        field.SummaryCount = 7;
        run.InputTable[number].LongValue = 9;
        run.InputTable[number].DoubleValue = 9.0;
        run.PageFresh = 0;
        PageBreak(session, SECTION_DETAIL_1);
        EXPECT_EQ(+field.LongSummary, row.expected) << row.type << " " << row.flags;
        EXPECT_EQ(+field.DoubleSummary, row.expected);
        EXPECT_EQ(+field.SummaryCount, row.expected == 70 ? 7 : 0);
    }
}

TEST_F(PageBreaks, CalculationsAreMadeAnewExceptThoseOfAFooter) {
    const int value = NumberField(4);
    const int calculation = CalcField({value});
    const int deferred = CalcField({value});
    Field(deferred).SummarySection = SECTION_PAGE_FOOTER;
    Field(deferred).FieldFlags = FIELD_IN_FOOTER;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(+Field(calculation).LongValue, 4);
    EXPECT_EQ(+Field(deferred).LongValue, 0);
}

// The page header consumes the total that it prints, so what is computed behind it reads 0.
TEST_F(PageBreaks, HeaderCalculationsAreMadeOnceMoreAheadOfTheFirstTitle) {
    const int value = NumberField(4);
    Field(value).SummaryType = SUMMARY_TOTAL;
    Section(SECTION_PAGE_HEADER, 50);
    FieldItem(0, 0, 400, 40, value);
    const int in_title = CalcField({CELL_NO_OPERAND, value, 519});
    const int in_row = CalcField({CELL_NO_OPERAND, value, 519});
    Field(in_title).SummarySection = SECTION_SORT_HEADER_9;
    Field(in_row).SummarySection = SECTION_DETAIL_1;
    SectionRecord &title = Band(SECTION_SORT_HEADER_1, 50, "title");
    Break(value, SECTION_SORT_HEADER_1);
    const auto turn = [&](int flags) {
        title.SectionFlags = static_cast<uint16_t>(flags);
        Field(value).LongSummary = 70;
        run.PageFresh = 0;
        PageBreak(session, SECTION_DETAIL_1);
    };
    turn(0);
    EXPECT_EQ(+Field(in_title).LongValue, 70);
    turn(SECTION_REPRINT);
    EXPECT_EQ(+Field(in_title).LongValue, 0);
    EXPECT_EQ(+Field(in_row).LongValue, 70);
}

// The first title consumes the total that it prints, and the second still knows it.
TEST_F(PageBreaks, CalculationsOfAllTitlesAreMadeAheadOfTheFirst) {
    const int value = NumberField(4);
    Field(value).SummaryType = SUMMARY_TOTAL;
    Field(value).LongSummary = 70;
    const int in_title = CalcField({CELL_NO_OPERAND, value, 519});
    Field(in_title).SummarySection = SECTION_SORT_HEADER_9;
    Section(SECTION_SORT_HEADER_1, 50, SECTION_REPRINT);
    FieldItem(0, 0, 400, 40, value);
    Band(SECTION_SORT_HEADER_1 + 1, 50, "title", SECTION_REPRINT);
    for (int level = 0; level < 2; ++level) Break(value, SECTION_SORT_HEADER_1 + level);
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(+Field(value).LongSummary, 0);
    EXPECT_EQ(+Field(in_title).LongValue, 70);
}

TEST_F(PageBreaks, FooterSeesTheRecordThatStandsInTheFieldTable) {
    const int value = NumberField(1);
    Section(SECTION_PAGE_FOOTER, 50);
    FieldItem(0, 0, 400, 40, value);
    run.InputTable[value].LongValue = 2;
    PageBreak(session, SECTION_DETAIL_1);
    EXPECT_EQ(PageMarks(0), (Lines{"1000 1"}));
}

// ---- a run that is stopped at a page's end ----

TEST_F(PageBreaks, FileRunThatIsStoppedUnwindsWithFiveAndItsPagesStand) {
    Band(SECTION_DETAIL_1, 50, "row");
    PrintSection(session, SECTION_DETAIL_1, 0);
    PageBreak(session, SECTION_DETAIL_1);
    StopAtPageEnd();
    run.PageFresh = 0;
    EXPECT_EQ(CodeOf([&] { PageBreak(session, SECTION_DETAIL_1); }), CODE_CANCELLED);
    EXPECT_TRUE(boxes.Log().empty());
    const std::string report = ReadWholeFile(session->pages.ReportPath);
    ASSERT_EQ(+HeaderOf(report).PageCount, 2);
    EXPECT_EQ(PageWords(report, 0), (Lines{"row"}));
    EXPECT_TRUE(PageWords(report, 1).empty());
}

TEST_F(PageBreaks, StoppedRunThatIsFinishedReturnsWithoutANewPage) {
    StopAtPageEnd();
    session->report.RunPhase = tessarine::PHASE_FINISHED;
    EXPECT_EQ(CodeOf([&] { EXPECT_EQ(PageBreak(session, SECTION_REPORT_FOOTER), 0); }), 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(+HeaderOf(ReadWholeFile(session->pages.ReportPath)).Magic, SIGNATURE_REPORT);
}

TEST_F(PageBreaks, StoppedPrinterRunUnwindsWithFive) {
    StopAtPageEnd();
    session->OutputToFile = 0;
    session->OutputToPrinter = 1;
    EXPECT_EQ(CodeOf([&] { PageBreak(session, SECTION_DETAIL_1); }), CODE_CANCELLED);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->report.PageCount, 1);
}

TEST_F(PageBreaks, StoppedPrinterRunThatIsFinishedReturns) {
    StopAtPageEnd();
    session->OutputToFile = 0;
    session->OutputToPrinter = 1;
    session->report.RunPhase = tessarine::PHASE_FINISHED;
    EXPECT_EQ(CodeOf([&] { EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 0); }), 0);
    EXPECT_EQ(session->report.PageCount, 1);
}

TEST_F(PageBreaks, StoppedScreenRunGoesOnToItsNextRecord) {
    StopAtPageEnd();
    session->OutputToFile = 0;
    session->OutputToScreen = 1;
    EXPECT_EQ(CodeOf([&] { EXPECT_EQ(PageBreak(session, SECTION_DETAIL_1), 1); }), 0);
    EXPECT_EQ(session->report.PageCount, 2);
}

TEST_F(PageBreaks, PrinterIsMappedAnewOnEachPage) {
    session->OutputToFile = 0;
    session->OutputToPrinter = 1;
    session->drawing.ScreenDC = CreateMetaFileA(nullptr);
    PageBreak(session, SECTION_DETAIL_1);
    const HMETAFILE printed = CloseMetaFile(session->drawing.ScreenDC);
    EXPECT_EQ(DrawingOf(BytesOfMetafile(printed)),
              (Lines{"map 8", "window 250,250", "viewport 500,500"}));
    DeleteMetaFile(printed);
}

// ---- the preview ----

TEST_F(PageBreaks, MenuOfAPreviewOpensWithItsFirstTwoPages) {
    session->OutputToFile = 0;
    session->OutputToScreen = 1;
    const HMENU menu = CreatePopupMenu();
    session->device.Menu = menu;
    for (const UINT command : {COMMAND_PRINT, COMMAND_JUMP})
        AppendMenuA(menu, MF_STRING | MF_GRAYED, command, "command");
    const auto enabled = [menu](UINT command) {
        return !(GetMenuState(menu, command, MF_BYCOMMAND) & MF_GRAYED);
    };
    const auto next_page = [this] {
        run.PageFresh = 0;
        PageBreak(session, SECTION_DETAIL_1);
    };
    next_page();
    EXPECT_TRUE(enabled(COMMAND_PRINT));
    EXPECT_FALSE(enabled(COMMAND_JUMP));
    next_page();
    EXPECT_TRUE(enabled(COMMAND_JUMP));
    EnableMenuItem(menu, COMMAND_JUMP, MF_BYCOMMAND | MF_GRAYED);
    next_page();
    EXPECT_FALSE(enabled(COMMAND_JUMP));
    EXPECT_TRUE(session->pages.ShownPage);
    DestroyMenu(menu);
}
