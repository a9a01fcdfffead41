// Groups: what is a break, what prints and starts anew at one, and the summaries of a group.
#include <cstring>

#include "run/breaks.h"
#include "run/calculations.h"
#include "run/summaries.h"
#include "tests/support/composition.h"

using tessarine::AccumulateSummaries;
using tessarine::DetectBreak;
using tessarine::PrintHeaders;

namespace {

using Lines = std::vector<std::string>;

constexpr int INNER_HEADER = SECTION_SORT_HEADER_1 + 1;
constexpr int INNER_FOOTER = SECTION_SORT_FOOTER_1 - 1;

// Two levels over two number fields, which the new record shares at first.
class Breaks : public Composition {
protected:
    Breaks() {
        StartFile();
        outer = NumberField(1);
        inner = NumberField(2);
        run.InputTable[outer].LongValue = 1;
        run.InputTable[inner].LongValue = 2;
        Band(SECTION_SORT_HEADER_1, 50, "outer head");
        Band(INNER_HEADER, 50, "inner head");
        Band(INNER_FOOTER, 50, "inner foot");
        Band(SECTION_SORT_FOOTER_1, 50, "outer foot");
        Break(outer, SECTION_SORT_HEADER_1);
        Break(inner, INNER_HEADER);
    }
    FieldRecord &New(int row) { return run.InputTable[row]; }
    void ResetPageAt(int header) {
        session->form.Sections[header].SectionFlags |= SECTION_RESET_PAGE;
    }

    int outer;
    int inner;
};

} // namespace

// ---- what is a break ----

TEST_F(Breaks, EqualRecordsGiveTheNumberOfLevels) {
    EXPECT_EQ(DetectBreak(session), 2);
    EXPECT_TRUE(Marks().empty());
}

TEST_F(Breaks, FootersPrintFromTheInnermostToTheLevelThatChanged) {
    New(inner).LongValue = 9;
    EXPECT_EQ(DetectBreak(session), 1);
    EXPECT_EQ(Marks(), (Lines{"100 inner foot"}));
    New(inner).LongValue = 2;
    New(outer).LongValue = 9;
    EXPECT_EQ(DetectBreak(session), 0);
    EXPECT_EQ(Marks(), (Lines{"150 inner foot", "200 outer foot"}));
}

TEST_F(Breaks, DoublesDifferByEitherSide) {
    Field(inner).ValueType = TYPE_DOUBLE;
    Field(inner).DoubleValue = New(inner).DoubleValue = 0.5;
    EXPECT_EQ(DetectBreak(session), 2);
    New(inner).DoubleValue = 0.25;
    EXPECT_EQ(DetectBreak(session), 1);
    New(inner).DoubleValue = 0.5;
    New(inner).LongValue = 3;
    EXPECT_EQ(DetectBreak(session), 1);
}

// The system's own comparison passes over a soft hyphen.
TEST_F(Breaks, TextsThatTheSystemTakesForEqualAreNoBreak) {
    char before[] = "coop";
    char now[] = "co\xADop";
    Field(inner).ValueType = New(inner).ValueType = TYPE_TEXT;
    Field(inner).TextValue = before;
    New(inner).TextValue = now;
    EXPECT_EQ(DetectBreak(session), 2);
    now[2] = '-';
    EXPECT_EQ(DetectBreak(session), 1);
    Field(inner).TextValue = New(inner).TextValue = nullptr;
}

TEST_F(Breaks, OtherTypesDifferByTheirWholeNumbersAlone) {
    for (const int type : {TYPE_NUMERIC, TYPE_LOGICAL, TYPE_DATE}) {
        Field(inner).ValueType = static_cast<int16_t>(type);
        New(inner).LongValue = 2;
        New(inner).DoubleValue = 0.25;
        EXPECT_EQ(DetectBreak(session), 2) << type;
        New(inner).LongValue = 3;
        EXPECT_EQ(DetectBreak(session), 1) << type;
    }
}

// ---- the page's number ----

TEST_F(Breaks, HeaderThatAsksForItStartsThePageNumberAnew) {
    ResetPageAt(SECTION_SORT_HEADER_1);
    New(outer).LongValue = 9;
    DetectBreak(session);
    EXPECT_EQ(run.ResetPageNumber, 1);
}

TEST_F(Breaks, BreakOfALevelThatDoesNotAskTakesTheWishBack) {
    ResetPageAt(SECTION_SORT_HEADER_1);
    run.ResetPageNumber = 1;
    EXPECT_EQ(DetectBreak(session), 2);
    EXPECT_EQ(run.ResetPageNumber, 1); // no break, no change
    New(inner).LongValue = 9;
    EXPECT_EQ(DetectBreak(session), 1);
    EXPECT_EQ(run.ResetPageNumber, 0);
}

// The footer belongs to the pages of the group that ends.
TEST_F(Breaks, OwnFooterStillPrintsUnderTheOldNumber) {
    ResetPageAt(INNER_HEADER);
    New(inner).LongValue = 9;
    run.PageNumber = 5;
    run.CurrentY = 980;
    run.PageFresh = 0;
    DetectBreak(session);
    EXPECT_EQ(run.PageNumber, 6);
    EXPECT_EQ(run.ResetPageNumber, 1);
}

// ---- headers ----

TEST_F(Breaks, HeadersPrintFromTheLevelThatChangedToTheInnermost) {
    PrintHeaders(session, 0);
    EXPECT_EQ(Marks(), (Lines{"100 outer head", "150 inner head"}));
    PrintHeaders(session, 1);
    EXPECT_EQ(Marks(), (Lines{"200 inner head"}));
}

TEST_F(Breaks, FirstRowOfAGroupFollowsABreakAlone) {
    run.FirstInGroup = 0;
    PrintHeaders(session, 2);
    EXPECT_EQ(run.FirstInGroup, 0);
    PrintHeaders(session, 1);
    EXPECT_EQ(run.FirstInGroup, 1);
}

namespace {

struct GroupSummary {
    int type;
    int flags;
    int section;
    int in_use;
    int32_t expected;
};

} // namespace

TEST_F(Breaks, SummariesOfAGroupStartAnewBehindItsHeader) {
    constexpr GroupSummary rows[] = {
        {SUMMARY_TOTAL, 0, INNER_FOOTER, 1, 0},
        {SUMMARY_VALUE, 0, INNER_FOOTER, 1, 0},
        {SUMMARY_MAX, 0, INNER_FOOTER, 1, 9},
        {SUMMARY_MIN, 0, INNER_FOOTER, 1, 9},
        {SUMMARY_TOTAL, FIELD_RETAIN, INNER_FOOTER, 1, 70},
        {SUMMARY_TOTAL, 0, INNER_FOOTER, 0, 70},
        {SUMMARY_TOTAL, 0, SECTION_SORT_FOOTER_1, 1, 70},
        {SUMMARY_TOTAL, 0, SECTION_REPORT_FOOTER, 1, 70},
    };
    for (const GroupSummary &row : rows) {
        FieldRecord &field = Field(NumberField(9));
        field.DoubleValue = 9.0;
        field.SummaryType = static_cast<int16_t>(row.type);
        field.FieldFlags = static_cast<uint16_t>(row.flags);
        field.SummarySection = static_cast<int16_t>(row.section);
        field.InUse = static_cast<uint16_t>(row.in_use);
        field.LongSummary = 70;
        field.DoubleSummary = 70.0;
        field.SummaryCount = 7;
        PrintHeaders(session, 1);
        EXPECT_EQ(+field.LongSummary, row.expected) << row.type << " in " << row.section;
        EXPECT_EQ(+field.DoubleSummary, row.expected);
        EXPECT_EQ(+field.SummaryCount, row.expected == 70 ? 7 : 0);
    }
}

// ---- summaries ----

namespace {

struct Step {
    int type;
    double double_sum;
    int32_t long_sum;
};

} // namespace

TEST_F(Breaks, RecordEntersEachSideOfASummaryWithItsOwnValue) {
    constexpr Step rows[] = {{SUMMARY_VALUE, 5.5, 27},   {SUMMARY_TOTAL, 5.5, 27},
                             {SUMMARY_AVERAGE, 5.5, 27}, {SUMMARY_COUNT, 5.5, 27},
                             {SUMMARY_MAX, 4.0, 20},     {SUMMARY_MIN, 1.5, 7},
                             {/* unknown */ 77, 5.5, 27}};
    for (const Step &row : rows) {
        const int number = NumberField(7);
        FieldRecord &field = Field(number);
        field.SummaryType = static_cast<int16_t>(row.type);
        field.InUse = 0; // whether or not
        field.DoubleValue = 1.5;
        field.DoubleSummary = 4.0;
        field.LongSummary = 20;
        field.SummaryCount = 3;
        AccumulateSummaries(session);
        EXPECT_EQ(+field.DoubleSummary, row.double_sum) << row.type;
        EXPECT_EQ(+field.LongSummary, row.long_sum) << row.type;
        EXPECT_EQ(+field.SummaryCount, 4);
    }
}

TEST_F(Breaks, LargerAndSmallerValuesReplaceAnExtreme) {
    for (const int type : {SUMMARY_MAX, SUMMARY_MIN}) {
        const double value = type == SUMMARY_MAX ? 8.5 : -8.5;
        FieldRecord &field = Field(NumberField(static_cast<int32_t>(value)));
        field.SummaryType = static_cast<int16_t>(type);
        field.DoubleValue = value;
        AccumulateSummaries(session);
        EXPECT_EQ(+field.DoubleSummary, value);
        EXPECT_EQ(+field.LongSummary, static_cast<int32_t>(value));
    }
}

// ---- calculations ----

TEST_F(Breaks, CalculationOfAFooterIsMadeWithItAlone) {
    const int value = NumberField(4);
    const int deferred = CalcField({value});
    Field(deferred).SummarySection = INNER_FOOTER;
    Field(deferred).FieldFlags = FIELD_IN_FOOTER;
    tessarine::CalcFields(session, 0, 30);
    tessarine::CalcFields(session, SECTION_SORT_FOOTER_1, SECTION_SORT_FOOTER_1);
    EXPECT_EQ(+Field(deferred).LongValue, 0);
    New(inner).LongValue = 9;
    DetectBreak(session);
    EXPECT_EQ(+Field(deferred).LongValue, 4);
}
