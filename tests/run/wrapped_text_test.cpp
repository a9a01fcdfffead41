// Wrapped text on the page: what it pushes down, and how it runs over the page's end.
#include "run/wrapped_text.h"

#include <cstring>

#include "frame/memory.h"
#include "run/sections.h"
#include "tests/support/composition.h"

using tessarine::PrintSection;

namespace {

using Lines = std::vector<std::string>;
using tessarine::CANCEL_STOP;

constexpr int FIVE_CHARACTERS = 61; // a width that the sixth character reaches

class WrappedText : public Composition {
protected:
    WrappedText() { StartFile(); }

    // A section with a wrapped text of five characters a line at its top.
    ItemRecord &Wrapped(int section, const std::string &text, int height, int flags = 0) {
        Section(section, 100);
        return FieldItem(0, 0, FIVE_CHARACTERS, height, TextField(text, FIELD_WORD_WRAP | flags));
    }
    ItemRecord &Below(int y) {
        ItemRecord &item = Marker("below");
        item.y = static_cast<int16_t>(y);
        return item;
    }
};

const std::string four_lines = "aaaa bbbb cccc dddd";
constexpr int GROWS = FIELD_VARIABLE_LINES;

} // namespace

TEST_F(WrappedText, LinesStandOneBelowTheOtherFromTheTop) {
    Wrapped(SECTION_DETAIL_1, four_lines, 160).ItemFlags = FLAG_LEFT | FLAG_BOTTOM;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "140 bbbb", "180 cccc", "220 dddd"}));
    EXPECT_EQ(run.RowBottom, 260);
    EXPECT_EQ(run.CurrentY, 260);
}

TEST_F(WrappedText, EachLineIsTrimmedAndAlignedByItself) {
    const struct {
        int flags;
        Lines lines;
    } rows[] = {
        {FLAG_LEFT, {"text 60,100 aaa", "text 60,140 b"}},
        {FLAG_RIGHT, {"text 65,100 aaa", "text 89,140 b"}},
        {FLAG_CENTER, {"text 62,100 aaa", "text 74,140 b"}},
    };
    ItemRecord &item = Wrapped(SECTION_DETAIL_1, "", 160);
    for (const auto &row : rows) {
        std::strcpy(Field(item.FieldIndex).TextValue, " aaa\r b \r\r");
        item.ItemFlags = static_cast<uint16_t>(row.flags);
        run.CurrentY = 100;
        PrintSection(session, SECTION_DETAIL_1, 0);
        EXPECT_EQ(LinesWith(Drawing(), {"text"}), row.lines) << row.flags;
    }
}

TEST_F(WrappedText, TextHasItsColourAndFont) {
    Wrapped(SECTION_DETAIL_1, four_lines, 160).TextColor = 0x00FF00;
    PrintSection(session, SECTION_DETAIL_1, 0);
    const Lines drawn = Drawing();
    ASSERT_GE(drawn.size(), 4U);
    EXPECT_EQ(drawn[0].rfind("select font", 0), 0U);
    EXPECT_EQ(drawn[1], "color 00FF00");
    EXPECT_EQ(drawn[2], "mode 1");
    EXPECT_EQ(drawn[3], "text 60,100 aaaa");
}

TEST_F(WrappedText, CaseRulesComeFirst) {
    Wrapped(SECTION_DETAIL_1, four_lines, 160, FIELD_UPPER);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks().front(), "100 AAAA");
}

TEST_F(WrappedText, FullRectangleEndsTheText) {
    Wrapped(SECTION_DETAIL_1, four_lines, 119);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "140 bbbb"}));
}

TEST_F(WrappedText, LineThatEndsExactlyAtTheBottomFits) {
    Wrapped(SECTION_DETAIL_1, four_lines, 120);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "140 bbbb", "180 cccc"}));
}

TEST_F(WrappedText, FirstLinePrintsInARectangleOfNoHeight) {
    Wrapped(SECTION_DETAIL_1, four_lines, 0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa"}));
}

TEST_F(WrappedText, TextOfOneCharacterPrintsNothingAndOfTwoBoth) {
    ItemRecord &item = Wrapped(SECTION_DETAIL_1, "a", 40);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_TRUE(Marks().empty());
    std::strcpy(Field(item.FieldIndex).TextValue, "ab");
    run.CurrentY = 100;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 ab"}));
}

TEST_F(WrappedText, EmptyTextPrintsNothingAndRaisesNothing) {
    Wrapped(SECTION_DETAIL_1, "", 90);
    Below(95);
    session->form.Sections[SECTION_DETAIL_1].SectionFlags = SECTION_COMPRESS_AFTER;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"195 below"}));
}

// ---- what stands below ----

TEST_F(WrappedText, GrownTextPushesWhatStandsBelow) {
    Wrapped(SECTION_DETAIL_1, four_lines, 40, GROWS);
    Below(50);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "140 bbbb", "180 cccc", "220 dddd", "270 below"}));
    EXPECT_EQ(run.CurrentY, 310);
}

TEST_F(WrappedText, EmptyTextThatMayShrinkLetsItemsBelowMoveUpByItsHeight) {
    Wrapped(SECTION_DETAIL_1, "", 80, GROWS);
    Below(90);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"110 below"}));
}

TEST_F(WrappedText, TextThatFillsItsItemPushesNothing) {
    Wrapped(SECTION_DETAIL_1, four_lines, 160, GROWS);
    Below(170);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks().back(), "270 below");
}

TEST_F(WrappedText, TextOfFixedLinesPushesNothing) {
    Wrapped(SECTION_DETAIL_1, four_lines, 40);
    Below(50);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "150 below"}));
}

TEST_F(WrappedText, ItemsThatStartAtOrAboveTheBottomStay) {
    Wrapped(SECTION_DETAIL_1, four_lines, 40, GROWS);
    Below(40);
    Below(0);
    PrintSection(session, SECTION_DETAIL_1, 0);
    const Lines marks = Marks();
    EXPECT_EQ(Lines(marks.end() - 2, marks.end()), (Lines{"140 below", "100 below"}));
}

TEST_F(WrappedText, ItemsOfTheTableBeforeTheTextStay) {
    Section(SECTION_DETAIL_1, 100);
    Below(50);
    FieldItem(0, 0, FIVE_CHARACTERS, 40, TextField(four_lines, FIELD_WORD_WRAP | GROWS));
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks().front(), "150 below");
}

TEST_F(WrappedText, GroupItemAndForeignItemsAreNotPushed) {
    Wrapped(SECTION_DETAIL_1, four_lines, 40, GROWS);
    ItemRecord &group = Below(50);
    group.ItemType = ITEM_GROUP;
    ItemRecord &foreign = Below(50);
    foreign.SectionIndex = SECTION_DETAIL_1 + 1;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(+group.RunOffset, 0);
    EXPECT_EQ(+foreign.RunOffset, 0);
}

TEST_F(WrappedText, PushesOfSeveralTextsAddUp) {
    Wrapped(SECTION_DETAIL_1, four_lines, 40, GROWS);
    FieldItem(0, 50, FIVE_CHARACTERS, 40, TextField("eeee ffff", FIELD_WORD_WRAP | GROWS));
    Below(100);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 aaaa", "140 bbbb", "180 cccc", "220 dddd", "270 eeee",
                              "310 ffff", "360 below"}));
}

// ---- over the page's end ----

namespace {

class SpilledText : public WrappedText {
protected:
    SpilledText() {
        Band(SECTION_PAGE_HEADER, 50, "page head");
        Band(SECTION_SORT_HEADER_1, 50, "title", SECTION_REPRINT);
        Break(NumberField(1), SECTION_SORT_HEADER_1);
        run.CurrentY = 900;
    }
};

} // namespace

TEST_F(SpilledText, FirstDetailGoesOnUnderHeaderAndTitlesOfTheNextPage) {
    Wrapped(SECTION_DETAIL_1, four_lines, 100, GROWS);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(PageMarks(0), (Lines{"900 aaaa", "940 bbbb"}));
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd"}));
    EXPECT_EQ(run.CurrentY, 280);
    EXPECT_EQ(session->report.PageCount, 2);
    EXPECT_EQ(run.PageFresh, 0);
}

TEST_F(SpilledText, ColourIsSelectedAnewOnTheNextPage) {
    Wrapped(SECTION_DETAIL_1, four_lines, 100, GROWS).TextColor = 0x0000FF;
    PrintSection(session, SECTION_DETAIL_1, 0);
    const Lines drawn = LinesWith(Drawing(), {"color", "text"});
    ASSERT_EQ(drawn.size(), 7U);
    EXPECT_EQ(drawn[4], "color 0000FF");
    EXPECT_EQ(drawn[5], "text 60,200 cccc");
}

TEST_F(SpilledText, OtherDetailSectionsAreCutAtThePagesEnd) {
    Wrapped(SECTION_DETAIL_1 + 1, four_lines, 100, GROWS);
    PrintSection(session, SECTION_DETAIL_1 + 1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(Marks(), (Lines{"900 aaaa", "940 bbbb"}));
}

TEST_F(SpilledText, RectangleEndsATextBeforeThePageDoes) {
    Wrapped(SECTION_DETAIL_1, four_lines, 80);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
    EXPECT_EQ(Marks(), (Lines{"900 aaaa", "940 bbbb"}));
}

TEST_F(SpilledText, ContinuedTextNeverStopsByItsRectangle) {
    Wrapped(SECTION_DETAIL_1, four_lines + " eeee ffff gggg", 120);
    session->form.Sections[SECTION_DETAIL_1].SectionHeight = 100;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(PageMarks(0), (Lines{"900 aaaa", "940 bbbb"}));
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "280 eeee",
                              "320 ffff", "360 gggg"}));
}

TEST_F(SpilledText, LongTextRunsOverSeveralPages) {
    std::string text;
    for (int line = 0; line < 50; ++line) text += "word ";
    Wrapped(SECTION_DETAIL_1, text + "last", 100, GROWS);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 4);
    EXPECT_EQ(PageMarks(0).size(), 2U);
    EXPECT_EQ(PageMarks(1).size(), 2U + 20U);
    EXPECT_EQ(PageMarks(2).size(), 2U + 20U);
    EXPECT_EQ(Marks().size(), 2U + 9U);
}

TEST_F(SpilledText, ContinuedTextOfFixedLinesRunsOnToFurtherPages) {
    std::string text;
    for (int line = 0; line < 30; ++line) text += "word ";
    Wrapped(SECTION_DETAIL_1, text + "last", 120);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 3);
    EXPECT_EQ(PageMarks(1).size(), 2U + 20U);
    EXPECT_EQ(Marks().size(), 2U + 9U);
}

// Set-up paints the wrapped item last, so that none is painted behind it.
TEST_F(SpilledText, ItemPaintedAfterASpilledTextLandsASectionsHeightTooHigh) {
    Wrapped(SECTION_DETAIL_1, four_lines, 80, GROWS);
    ItemRecord &below = Below(90);
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(+below.RunOffset, 80 - 90 + 10);
    EXPECT_EQ(Marks().back(), "190 below"); // 280 for the text's end, 10 below it, less 100
}

TEST_F(SpilledText, StoppedRunPrintsTheRestWithoutANewPage) {
    Wrapped(SECTION_DETAIL_1, four_lines, 100, GROWS);
    session->report.CancelState = CANCEL_STOP;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(session->report.PageCount, 1);
}

TEST_F(SpilledText, BodyThatIsLowerThanALineTakesOneLineAPage) {
    run.BodyBottom = 220;
    run.CurrentY = 100;
    session->form.Sections[SECTION_PAGE_HEADER].InUse = 0;
    session->form.Sections[SECTION_SORT_HEADER_1].InUse = 0;
    run.TopOrigin = 190;
    Wrapped(SECTION_DETAIL_1, four_lines, 100, GROWS);
    run.CurrentY = 190;
    run.PageFresh = 1;
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(PageMarks(0), (Lines{"190 aaaa"}));
    EXPECT_EQ(PageMarks(1), (Lines{"190 bbbb"}));
    EXPECT_EQ(PageMarks(3), (Lines{"190 dddd"}));
    EXPECT_EQ(session->report.PageCount, 5);
}

TEST_F(SpilledText, TextThatIsComputedAnewOnTheWayIsReadAnew) {
    const int source = TextField(four_lines);
    const int calculated = CalcField({source});
    Field(calculated).ValueType = TYPE_TEXT;
    Field(calculated).FieldFlags = FIELD_WORD_WRAP | GROWS;
    Field(calculated).TextValue = static_cast<char *>(tessarine::OurAlloc(50));
    std::strcpy(Field(calculated).TextValue, four_lines.c_str());
    Section(SECTION_DETAIL_1, 100);
    FieldItem(0, 0, FIVE_CHARACTERS, 100, calculated);
    std::strcpy(Field(source).TextValue, "aaaa bbbb");
    PrintSection(session, SECTION_DETAIL_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title"}));
}

// ---- over the page's end in a row across ----

namespace {

// Two lines of a row's long text fit on the first page. The pitch of the columns is 500.
class SpilledRow : public SpilledText {
protected:
    void Across(int columns) {
        item_ = &Wrapped(SECTION_DETAIL_1, "", 100, GROWS);
        session->form.Sections[SECTION_DETAIL_1].Across = static_cast<int16_t>(columns);
        Band(SECTION_PAGE_FOOTER, 50, "page foot");
        Band(SECTION_SORT_FOOTER_1, 50, "total");
    }
    void Print(const std::string &text) {
        std::strcpy(Field(item_->FieldIndex).TextValue, text.c_str());
        PrintSection(session, SECTION_DETAIL_1, 0);
    }
    // What stands in the second column.
    Lines SecondColumn() { return LinesWith(Drawing(), {"text 560,"}); }

private:
    ItemRecord *item_ = nullptr;
};

const Lines first_page = {"900 aaaa", "940 bbbb", "1000 page foot"};

} // namespace

TEST_F(SpilledRow, NextColumnsStandBesideTheRestOfTheText) {
    Across(3);
    Print(four_lines);
    EXPECT_EQ(PageMarks(0), first_page);
    Print("ee");
    Print("ff");
    EXPECT_EQ(Marks(),
              (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "200 ee", "200 ff"}));
    Print("gg");
    EXPECT_EQ(Marks(), Lines{"300 gg"}); // the row had a row's whole place
}

TEST_F(SpilledRow, TextGoesOnInItsOwnColumn) {
    Across(2);
    Print("ee");
    Print(four_lines);
    EXPECT_EQ(PageMarks(0), (Lines{"900 ee", "900 aaaa", "940 bbbb", "1000 page foot"}));
    EXPECT_EQ(SecondColumn(), (Lines{"text 560,200 cccc", "text 560,240 dddd"}));
    Print("gg");
    EXPECT_EQ(Marks(), Lines{"300 gg"});
}

TEST_F(SpilledRow, MiddleColumnLeavesThePlaceOfTheLast) {
    Across(3);
    Print("ee");
    Print(four_lines);
    Print("ff");
    EXPECT_EQ(PageMarks(0), (Lines{"900 ee", "900 aaaa", "940 bbbb", "1000 page foot"}));
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "200 ff"}));
    EXPECT_EQ(run.AcrossIndex, 0);
    EXPECT_EQ(run.CurrentY, 300);
}

TEST_F(SpilledRow, EachColumnMayTurnAPageOfItsOwn) {
    Across(2);
    run.BodyBottom = 280; // two lines below the titles
    run.CurrentY = 200;
    session->form.Sections[SECTION_DETAIL_1].SectionHeight = 80;
    Print("aaaa bbbb cccc");
    Print("dddd eeee ffff");
    EXPECT_EQ(PageMarks(0), (Lines{"200 aaaa", "240 bbbb", "280 page foot"}));
    EXPECT_EQ(PageMarks(1), (Lines{"100 page head", "150 title", "200 cccc", "200 dddd", "240 eeee",
                                   "280 page foot"}));
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 ffff"}));
}

TEST_F(SpilledRow, SectionThatInterruptsTheRowStandsBelowTheText) {
    Across(3);
    Print("ee");
    Print(four_lines + " gggg hhhh");
    PrintSection(session, SECTION_SORT_FOOTER_1, 0);
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "280 gggg",
                              "320 hhhh", "360 total"}));
}

TEST_F(SpilledRow, CompressedRowEndsBelowItsLongestText) {
    Across(2);
    session->form.Sections[SECTION_DETAIL_1].SectionFlags = SECTION_COMPRESS_AFTER;
    Print("ee");
    Print(four_lines);
    EXPECT_EQ(run.CurrentY, 280);
}

TEST_F(SpilledRow, LabelsBehindALongOneKeepTheirPlacesOnTheNextSheet) {
    Across(2);
    session->LabelMode = 1;
    Print(four_lines);
    Print("ee");
    Print("ff");
    Print("gg");
    EXPECT_EQ(PageMarks(0), first_page);
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "200 ee",
                              "300 ff", "300 gg"}));
}

TEST_F(SpilledRow, OneColumnGivesItsPlaceBack) {
    Across(1);
    Print(four_lines);
    Print("ee");
    EXPECT_EQ(Marks(), (Lines{"100 page head", "150 title", "200 cccc", "240 dddd", "280 ee"}));
}
