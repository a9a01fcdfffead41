// Where sections land on the page, one below the other and side by side.
#include "run/sections.h"

#include "frame/memory.h"
#include "tests/support/composition.h"

using tessarine::PrintSection;

namespace {

using Lines = std::vector<std::string>;

class Sections : public Composition {
protected:
    Sections() { StartFile(); }
};

} // namespace

TEST_F(Sections, SectionOutOfUsePrintsNothing) {
    Band(SECTION_REPORT_HEADER, 50, "head").InUse = 0;
    session->form.Sections[SECTION_REPORT_HEADER].PrintNow = 1;
    EXPECT_EQ(PrintSection(session, SECTION_REPORT_HEADER, 0), 0);
    EXPECT_EQ(run.CurrentY, 100);
    EXPECT_TRUE(Marks().empty());
    EXPECT_EQ(tessarine::SectionSelected(session, SECTION_REPORT_HEADER), 0);
    EXPECT_EQ(session->form.Sections[SECTION_REPORT_HEADER].PrintNow, 0);
}

TEST_F(Sections, SectionWithoutItemsTakesNoRoomAndBreaksNoPage) {
    SectionRecord &section = Section(SECTION_DETAIL_1, 5000);
    section.ItemTotal = 0;
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 0), 0);
    EXPECT_EQ(run.CurrentY, 100);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.LastSection, -1);
}

TEST_F(Sections, RefusedSectionTakesNoRoomAndBreaksNoPage) {
    Band(SECTION_DETAIL_1, 5000, "row");
    Filter(SECTION_DETAIL_1, {Constant(0)});
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 0), 0);
    EXPECT_EQ(run.CurrentY, 100);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.LastSection, -1);
}

TEST_F(Sections, EmptyFilterSelects) {
    Band(SECTION_DETAIL_1, 50, "row");
    EXPECT_EQ(tessarine::SectionSelected(session, SECTION_DETAIL_1), 1);
    EXPECT_EQ(session->form.Sections[SECTION_DETAIL_1].PrintNow, 1);
}

TEST_F(Sections, FilterNeedNotBeLogical) {
    Band(SECTION_DETAIL_1, 50, "row");
    Filter(SECTION_DETAIL_1, {Constant(7)});
    EXPECT_EQ(tessarine::SectionSelected(session, SECTION_DETAIL_1), 7);
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 0), 1);
}

TEST_F(Sections, FilterIsEvaluatedAfreshEachTime) {
    Band(SECTION_DETAIL_1, 50, "row");
    const int value = NumberField(1);
    Filter(SECTION_DETAIL_1, {value});
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 0), 1);
    Field(value).LongValue = 0;
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 0), 0);
    EXPECT_EQ(Marks(), (Lines{"100 row"}));
}

TEST_F(Sections, FilterThatFailsEndsTheRunWithFour) {
    Band(SECTION_DETAIL_1, 50, "row");
    Filter(SECTION_DETAIL_1, {NumberField(1), TextField("x"), 501});
    EXPECT_EQ(CodeOf([&] { PrintSection(session, SECTION_DETAIL_1, 0); }), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"Fatal Error", "Error In Section Filter", {IDOK}}));
    EXPECT_EQ(boxes.Log().back().buttons, (std::vector<int>{IDOK}));
}

TEST_F(Sections, TextOfAFilterIsGivenBack) {
    Band(SECTION_DETAIL_1, 50, "row");
    Filter(SECTION_DETAIL_1, {TextField("x")});
    const int blocks = tessarine::LiveBlocks();
    tessarine::SectionSelected(session, SECTION_DETAIL_1);
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
}

TEST_F(Sections, SectionsStandOneBelowTheOther) {
    Band(SECTION_REPORT_HEADER, 50, "head");
    Band(SECTION_DETAIL_1, 60, "row");
    EXPECT_EQ(PrintSection(session, SECTION_REPORT_HEADER, 0), 1);
    EXPECT_EQ(run.LastSection, SECTION_REPORT_HEADER);
    PrintSection(session, SECTION_DETAIL_1, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 head", "150 row", "210 row"}));
    EXPECT_EQ(run.CurrentY, 270);
    EXPECT_EQ(run.LastSection, SECTION_DETAIL_1);
}

TEST_F(Sections, SectionThatEndsExactlyAtBodyBottomFits) {
    Band(SECTION_DETAIL_1, 50, "row");
    run.CurrentY = 950;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(Marks(), (Lines{"950 row"}));
}

TEST_F(Sections, SectionOneUnitTallerThanTheRoomMovesToTheNextPage) {
    Band(SECTION_DETAIL_1, 51, "row");
    run.CurrentY = 950;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_TRUE(PageMarks(0).empty());
    EXPECT_EQ(Marks(), (Lines{"100 row"}));
}

TEST_F(Sections, SectionTallerThanAPagePrintsFromTheTopAndTheNextBreaks) {
    Band(SECTION_DETAIL_1, 2000, "tall");
    Band(SECTION_DETAIL_1 + 1, 50, "next");
    run.CurrentY = 500;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 2100);
    EXPECT_EQ(session->report.PageCount, 2);
    PrintSection(session, SECTION_DETAIL_1 + 1, 0);
    EXPECT_EQ(session->report.PageCount, 3);
    EXPECT_EQ(PageMarks(1), (Lines{"100 tall"}));
    EXPECT_EQ(Marks(), (Lines{"100 next"}));
}

TEST_F(Sections, AdvanceBeforeDoesNothingOnTheFirstSectionOfAPage) {
    Band(SECTION_DETAIL_1, 50, "row", SECTION_ADVANCE_BEFORE);
    run.PageFresh = 1;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(run.PageFresh, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_EQ(PageMarks(0), (Lines{"100 row"}));
    EXPECT_EQ(Marks(), (Lines{"100 row"}));
}

TEST_F(Sections, AdvanceAfterTheLastDetailPutsTheReportFooterOnANewPage) {
    Band(SECTION_DETAIL_1, 50, "row", SECTION_ADVANCE_AFTER);
    Band(SECTION_REPORT_FOOTER, 50, "end");
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 1001);
    EXPECT_EQ(session->report.PageCount, 1);
    PrintSection(session, SECTION_REPORT_FOOTER, 0);
    EXPECT_EQ(PageMarks(0), (Lines{"100 row"}));
    EXPECT_EQ(Marks(), (Lines{"100 end"}));
}

TEST_F(Sections, AdvanceAfterABandPutsTheNextSectionOnANewPage) {
    Band(SECTION_REPORT_HEADER, 50, "head", SECTION_ADVANCE_AFTER);
    PrintSection(session, SECTION_REPORT_HEADER, 0);
    EXPECT_EQ(run.CurrentY, 1001);
}

TEST_F(Sections, CompressedSectionEndsAtItsLowestItem) {
    Section(SECTION_REPORT_HEADER, 90, SECTION_COMPRESS_AFTER);
    Marker("head", 40);
    Section(SECTION_DETAIL_1, 90, SECTION_COMPRESS_AFTER);
    Marker("row", 60);
    PrintSection(session, SECTION_REPORT_HEADER, 0);
    EXPECT_EQ(run.CurrentY, 140);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 200);
}

TEST_F(Sections, SectionGrowsToItsLowestItem) {
    Section(SECTION_REPORT_HEADER, 50);
    Marker("head", 70);
    Section(SECTION_DETAIL_1, 50);
    Marker("row", 80);
    PrintSection(session, SECTION_REPORT_HEADER, 0);
    EXPECT_EQ(run.CurrentY, 170);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 250);
}

TEST_F(Sections, OnlyDetailSectionsEndTheFirstRowOfPageAndGroup) {
    Band(SECTION_REPORT_HEADER, 50, "head");
    Band(SECTION_DETAIL_9, 50, "row");
    PrintSection(session, SECTION_REPORT_HEADER, 0);
    EXPECT_EQ(run.FirstOnPage, 1);
    EXPECT_EQ(run.FirstInGroup, 1);
    PrintSection(session, SECTION_DETAIL_9, 0);
    EXPECT_EQ(run.FirstOnPage, 0);
    EXPECT_EQ(run.FirstInGroup, 0);
}

TEST_F(Sections, GroupItemAndItemsOfOtherSectionsArePassedOver) {
    Section(SECTION_DETAIL_1, 50);
    Marker("group").ItemType = ITEM_GROUP;
    Marker("other").SectionIndex = SECTION_DETAIL_1 + 1;
    Marker("own");
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 own"}));
}

TEST_F(Sections, OffsetsOfItemsBeginAnewWithEachPrinting) {
    Section(SECTION_DETAIL_1, 50);
    Marker("row").RunOffset = 33;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 row"}));
}

TEST_F(Sections, PrinterRunDrawsOnThePrinter) {
    Band(SECTION_DETAIL_1, 50, "row");
    session->OutputToFile = 0;
    session->OutputToPrinter = 1;
    session->drawing.ScreenDC = CreateMetaFileA(nullptr);
    PrintSection(session, SECTION_DETAIL_1, 0);
    const HMETAFILE printed = CloseMetaFile(session->drawing.ScreenDC);
    const Lines drawn = DrawingOf(BytesOfMetafile(printed));
    DeleteMetaFile(printed);
    EXPECT_EQ(LinesWith(drawn, {"text"}),
              (Lines{"text 60,100 row clip 50,100,450,150 by 12,12,12"}));
    EXPECT_TRUE(Marks().empty());
}

TEST_F(Sections, BackgroundOfABarFillsTheWholeBand) {
    ItemRecord &bar = session->form.Items[session->form.TotalItems];
    Section(SECTION_DETAIL_1, 50);
    bar.ItemFlags |= FLAG_BACKGROUND;
    bar.Background = {BS_SOLID, 0x123456, 0};
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(LinesWith(Drawing(), {"fill"}), (Lines{"fill 50,100 500,51 F00021"}));
    EXPECT_EQ(run.PageFresh, 0);
}

// ---- several records across the page ----

TEST_F(Sections, ColumnsStandABarsWidthApart) {
    Section(SECTION_DETAIL_1, 50, 0, 3);
    Marker("row");
    for (int record = 0; record < 4; ++record) PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(LinesWith(Drawing(), {"text"}),
              (Lines{"text 60,100 row clip 50,100,450,140 by 12,12,12",
                     "text 560,100 row clip 550,100,950,140 by 12,12,12",
                     "text 1060,100 row clip 1050,100,1450,140 by 12,12,12",
                     "text 60,150 row clip 50,150,450,190 by 12,12,12"}));
    EXPECT_EQ(run.AcrossIndex, 1);
    EXPECT_EQ(run.CurrentY, 150);
}

TEST_F(Sections, NextRowAcrossStartsBelowTheLowestColumn) {
    Section(SECTION_DETAIL_1, 50, 0, 2);
    ItemRecord &item = Marker("row", 120);
    PrintSection(session, SECTION_DETAIL_1, 0);
    item.height = 40;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 220);
}

TEST_F(Sections, RefusedSectionDoesNotEndARowAcross) {
    Section(SECTION_DETAIL_1, 50, 0, 3);
    Marker("row");
    Band(SECTION_DETAIL_1 + 1, 50, "other");
    Filter(SECTION_DETAIL_1 + 1, {Constant(0)});
    PrintSection(session, SECTION_DETAIL_1, 0);
    PrintSection(session, SECTION_DETAIL_1 + 1, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.AcrossIndex, 2);
    EXPECT_EQ(Marks(), (Lines{"100 row", "100 row"}));
}

TEST_F(Sections, AnyOtherSectionEndsAHalfFullRowAtItsBottom) {
    Section(SECTION_DETAIL_1, 50, 0, 3);
    Marker("row", 70);
    Band(SECTION_SORT_FOOTER_1, 50, "total");
    PrintSection(session, SECTION_DETAIL_1, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 100);
    PrintSection(session, SECTION_SORT_FOOTER_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 row", "100 row", "170 total"}));
    EXPECT_EQ(run.AcrossIndex, 0);
    EXPECT_EQ(run.CurrentX, 50);
}

TEST_F(Sections, AnotherDetailSectionEndsARowAcrossToo) {
    Section(SECTION_DETAIL_1, 50, 0, 3);
    Marker("row", 70);
    Section(SECTION_DETAIL_1 + 1, 50, 0, 3);
    Marker("other");
    PrintSection(session, SECTION_DETAIL_1, 0);
    PrintSection(session, SECTION_DETAIL_1 + 1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 row", "170 other"}));
    EXPECT_EQ(run.AcrossIndex, 1);
}

TEST_F(Sections, FirstColumnAloneSettlesWhetherThePageEnds) {
    Section(SECTION_DETAIL_1, 50, 0, 2);
    Marker("row");
    run.CurrentY = 950;
    PrintSection(session, SECTION_DETAIL_1, 0);
    session->form.Sections[SECTION_DETAIL_1].SectionHeight = 500;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(Marks(), (Lines{"950 row", "950 row"}));
}

TEST_F(Sections, AdvanceAfterHasNoEffectWithSeveralAcross) {
    Section(SECTION_DETAIL_1, 50, SECTION_ADVANCE_AFTER, 2);
    Marker("row");
    PrintSection(session, SECTION_DETAIL_1, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 150);
}

TEST_F(Sections, RowOfLabelsIsNeverCompressed) {
    session->LabelMode = 1;
    Section(SECTION_DETAIL_1, 250, SECTION_COMPRESS_AFTER);
    Marker("label");
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(run.CurrentY, 350);
}

// ---- the empty labels that fill a sheet ----

TEST_F(Sections, FillingASheetPaintsFramesAlone) {
    session->LabelMode = 1;
    session->form.Header.LabelGeometry.LabelWidth = 1.0F;
    session->form.Header.LabelGeometry.LabelHeight = 1.0F;
    Section(SECTION_DETAIL_1, 250, 0, 2);
    Marker("label");
    session->report.RunPhase = tessarine::PHASE_FILL;
    run.PageFresh = 1;
    EXPECT_EQ(PrintSection(session, SECTION_DETAIL_1, 1), 1);
    const Lines drawn = Drawing();
    EXPECT_TRUE(LinesWith(drawn, {"text"}).empty());
    EXPECT_EQ(LinesWith(drawn, {"round"}).size(), 1U);
    EXPECT_EQ(run.PageFresh, 0);
    EXPECT_EQ(run.AcrossIndex, 1);
}
