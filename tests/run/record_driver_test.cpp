#include <gtest/gtest.h>

#include <cstring>

#include "frame/memory.h"
#include "frame/session_table.h"
#include "run/breaks.h"
#include "run/record_driver.h"
#include "run/run_end.h"
#include "run/system_fields.h"
#include "tests/support/failing_call.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

using Lines = std::vector<std::string>;

FieldRecord &At(FormBuilder &form, int row) { return form.fields[static_cast<size_t>(row)]; }

// Two sort levels; each header prints its field, each footer the letters "end" and the field.
struct TwoLevels : FormBuilder {
    int outer = Field(FIELD_DATA, "OUTER", TYPE_TEXT);
    int inner = Field(FIELD_DATA, "INNER", TYPE_TEXT);

    explicit TwoLevels(int header_flags = 0) {
        Section(SECTION_SORT_HEADER_1, 50, header_flags);
        FieldItem(SECTION_SORT_HEADER_1, 200, 0, 400, 50, outer);
        Section(SECTION_SORT_HEADER_1 + 1, 50);
        FieldItem(SECTION_SORT_HEADER_1 + 1, 200, 0, 400, 50, inner);
        Section(SECTION_DETAIL_1, 50);
        Label(SECTION_DETAIL_1, 200, 0, 400, 50, "row");
        Section(SECTION_SORT_FOOTER_1 - 1, 50);
        Label(SECTION_SORT_FOOTER_1 - 1, 200, 0, 100, 50, "end");
        FieldItem(SECTION_SORT_FOOTER_1 - 1, 320, 0, 400, 50, inner);
        Section(SECTION_SORT_FOOTER_1, 50);
        Label(SECTION_SORT_FOOTER_1, 200, 0, 100, 50, "END");
        FieldItem(SECTION_SORT_FOOTER_1, 320, 0, 400, 50, outer);
        Break(outer, outer, SECTION_SORT_HEADER_1);
        Break(inner, inner, SECTION_SORT_HEADER_1 + 1);
    }
};

Record Pair(const char *outer, const char *inner) { return {{"OUTER", outer}, {"INNER", inner}}; }

struct NumberForm : FormBuilder {
    int number = Field(FIELD_DATA, "N", TYPE_NUMERIC);
    NumberForm() {
        At(*this, number).ThousandsChar[0] = 0;
        At(*this, number).NegativePrefix[0] = 0;
    }
};

} // namespace

TEST(RecordDriver, ChangeAtTheOuterLevelEndsTheInnerOneToo) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Run({Pair("A", "x"), Pair("B", "x")}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"A", "x", "row", "end", "x", "END", "A", "B", "x",
                                                 "row", "end", "x", "END", "B"}));
}

TEST(RecordDriver, ChangeAtTheInnerLevelLeavesTheOuterOneAlone) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Run({Pair("A", "x"), Pair("A", "y")}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0),
              (Lines{"A", "x", "row", "end", "x", "y", "row", "end", "y", "END", "A"}));
}

TEST(RecordDriver, EqualRecordsHaveNoFooterAndNoHeaderBetweenThem) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Run({Pair("A", "x"), Pair("A", "x")}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"A", "x", "row", "row", "end", "x", "END", "A"}));
}

TEST(RecordDriver, FormWithoutSortSectionsBreaksNowhere) {
    NumberForm form;
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, form.number);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"N", "1"}}, {{"N", "2"}}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"1", "2"}));
}

TEST(RecordDriver, RefusedRecordBehindABreakPrintsNoFooter) {
    TwoLevels form;
    const int no = form.Constant("\"no\"", TYPE_TEXT);
    form.Filter({form.inner, 508, no});
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({Pair("A", "x"), Pair("B", "no"), Pair("A", "x")}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"A", "x", "row", "row", "end", "x", "END", "A"}));
}

TEST(RecordDriver, FilterThatIsNotLogicalIsToldAndTheRunGoesOn) {
    NumberForm form;
    form.Filter({form.number});
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, form.number);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Feed({{"N", "1"}}), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"", "Error In Record Filter", {IDOK}}));
    EXPECT_EQ(run.Finish(), 0);
}

TEST(RecordDriver, FilterThatFailsLeavesItsRecordUncountedAndTheRunGoesOn) {
    NumberForm form;
    const int ten = form.Constant("10", TYPE_NUMERIC, 10);
    const int two = form.Constant("2", TYPE_NUMERIC, 2);
    form.Filter({ten, 506, form.number, 508, two});
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, form.number);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Feed({{"N", "0"}}), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Texts(), (Lines{"Error: Division by zero.", "Error In Record Filter"}));
    EXPECT_EQ(run.Feed({{"N", "1"}}), 0);
    EXPECT_EQ(run.Feed({{"N", "0"}}), CODE_EXPRESSION);
    EXPECT_EQ(run.Feed({{"N", "2"}}), 0);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"1", "2"}));
    EXPECT_EQ(+HeaderOf(run.Report()).RecordCount, 2);
}

TEST(RecordDriver, FailingCalculationIsFatalWithItsName) {
    NumberForm form;
    const int zero = form.Constant("0", TYPE_NUMERIC, 0);
    const int calc = form.Field(FIELD_CALC, "CALC->RATIO", TYPE_NUMERIC);
    FormBuilder::Store({form.number, 506, zero}, At(form, calc).FieldTokens);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, calc);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Feed({{"N", "1"}}), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Texts(),
              (Lines{"Error: Division by zero.", "Error In Calculation Field: CALC->RATIO"}));
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    run.Finish();
}

TEST(RecordDriver, FailingBreakCalculationIsFatalWithItsName) {
    NumberForm form;
    const int zero = form.Constant("0", TYPE_NUMERIC, 0);
    const int calc = form.Field(FIELD_CALC, "CALC->BRK", TYPE_NUMERIC);
    FormBuilder::Store({form.number, 506, zero}, At(form, calc).FieldTokens);
    form.Section(SECTION_SORT_HEADER_1, 50);
    form.Section(SECTION_DETAIL_1, 50);
    form.Break(form.number, calc, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(run.Feed({{"N", "1"}}), CODE_EXPRESSION);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Error In Break Calculation Field: CALC->BRK", {IDOK}}));
    run.Finish();
}

// A local clock that stands at nine and goes on by an hour each time it is read.
class HourlyClock {
public:
    HourlyClock() {
        hour_ = 9;
        real_ = ReplaceImport("GetLocalTime", reinterpret_cast<void *>(Read));
    }
    ~HourlyClock() { ReplaceImport("GetLocalTime", real_); }
    HourlyClock(const HourlyClock &) = delete;
    HourlyClock &operator=(const HourlyClock &) = delete;

private:
    static void WINAPI Read(SYSTEMTIME *now) {
        *now = SYSTEMTIME{1997, 3, 2, 4, hour_++, 5, 33, 0};
    }
    static inline WORD hour_;
    void *real_;
};

TEST(RecordDriver, RecordCountIsOneOnTheFirstRecordAndTheTimeDoesNotMove) {
    FormBuilder form;
    const int count = form.Field(FIELD_SYSTEM, "SYS->REC_COUNT", TYPE_NUMERIC, 6);
    At(form, count).TableIndex = SYSTEM_REC_COUNT;
    At(form, count).NegativePrefix[0] = 0;
    const int time = form.Field(FIELD_SYSTEM, "SYS->TIME", TYPE_TEXT, 10);
    At(form, time).TableIndex = SYSTEM_TIME;
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, count);
    form.FieldItem(SECTION_DETAIL_1, 700, 0, 400, 50, time);
    const HourlyClock clock;
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{}, {}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"1", "09:05AM", "2", "09:05AM"}));
}

TEST(RecordDriver, TwelveHourClock) {
    BareSession session;
    const int row = session.AddField(FIELD_SYSTEM, "SYS->TIME", TYPE_TEXT, 10);
    FieldRecord *field = &session->form.Fields[row];
    field->TableIndex = SYSTEM_TIME;
    const auto shown = [&](const char *clock) {
        std::strcpy(session->report.TimeText, clock);
        tessarine::SetSystemField(session, field);
        return std::string(field->TextValue);
    };
    EXPECT_EQ(shown("14:05:33"), "02:05PM");
    EXPECT_EQ(shown("12:00:00"), "12:00PM");
    EXPECT_EQ(shown("00:10:00"), "00:10AM");
    field->TimeForm = 1;
    EXPECT_EQ(shown("14:05:33"), "14:05");
}

TEST(RecordDriver, PageIsTheNextFromTheBodysBottomOn) {
    BareSession session;
    const int row = session.AddField(FIELD_SYSTEM, "SYS->PAGE", TYPE_NUMERIC);
    FieldRecord *field = &session->form.Fields[row];
    field->TableIndex = SYSTEM_PAGE;
    session->run.PageNumber = 5;
    session->run.BodyBottom = 1000;
    for (const int y : {999, 1000, 1001}) {
        session->run.CurrentY = y;
        tessarine::SetSystemField(session, field);
        EXPECT_EQ(+field->LongValue, y < 1000 ? 5 : 6) << y;
    }
}

TEST(RecordDriver, MaximumOfNegativesShowsZeroInTheFirstGroup) {
    NumberForm form;
    const int group = form.Field(FIELD_DATA, "G", TYPE_TEXT);
    const int most = form.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    At(form, most).SummaryType = SUMMARY_MAX;
    form.Section(SECTION_SORT_HEADER_1, 10);
    form.Section(SECTION_DETAIL_1, 10);
    form.Section(SECTION_SORT_FOOTER_1, 50);
    form.FieldItem(SECTION_SORT_FOOTER_1, 200, 0, 400, 50, most);
    form.Break(group, group, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    const auto feed = [&](const char *name, int number) {
        for (int row = 0; row < run.params.FieldTotal; ++row)
            if (!std::strcmp(run.params.FieldTable[row].FieldName, "N"))
                run.params.FieldTable[row].LongValue = number;
        return run.Feed({{"G", name}});
    };
    EXPECT_EQ(feed("A", -5), 0);
    EXPECT_EQ(feed("B", -7), 0);
    EXPECT_EQ(feed("B", -3), 0);
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{" 0", "-3"}));
}

TEST(RecordDriver, LongerTextOfTheHostIsTakenWhole) {
    FormBuilder form;
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT, 4);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 1500, 50, name);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    FieldRecord *row = run.Row("NAME");
    tessarine::OurFree(row->TextValue);
    const std::string text = "a text of more than four characters";
    row->TextValue = static_cast<char *>(tessarine::OurAlloc(text.size() + 2));
    row->FieldWidth = static_cast<int16_t>(text.size());
    std::strcpy(row->TextValue, text.c_str());
    ASSERT_EQ(run.Feed({}), 0);
    ASSERT_EQ(run.Finish(), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), Lines{text});
}

// An operand is 15 characters wide, whatever it names.
TEST(RecordDriver, ReportsNameStaysWholeAsAnOperand) {
    const std::string name = "SALES OF THE YEAR BY COUNTRY, CITY AND CUSTOMER, 51";
    FormBuilder form;
    std::strcpy(form.header.ReportName, name.c_str());
    const int operand = form.Field(FIELD_SYSTEM, "SYS->REPORT_NAME", TYPE_TEXT);
    At(form, operand).TableIndex = SYSTEM_REPORT_NAME;
    const int calc = form.Field(FIELD_CALC, "CALC->C", TYPE_TEXT);
    FormBuilder::Store({operand}, At(form, calc).FieldTokens);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 1700, 50, calc);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{}, {}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{name, name}));
}

TEST(RecordDriver, TextOfACalculationThatIsNoTextFieldIsGivenBack) {
    NumberForm form;
    const int text = form.Constant("\"words\"", TYPE_TEXT);
    const int calc = form.Field(FIELD_CALC, "CALC->C", TYPE_NUMERIC);
    FormBuilder::Store({text}, At(form, calc).FieldTokens);
    form.Section(SECTION_SORT_HEADER_1, 50);
    form.Section(SECTION_DETAIL_1, 50);
    form.Break(form.number, calc, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    const int blocks = tessarine::LiveBlocks();
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"N", "1"}}, {{"N", "2"}}}), 0) << boxes.LastText();
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
}

TEST(RecordDriver, MinimumOfPositivesShowsZeroInTheFirstGroup) {
    NumberForm form;
    const int group = form.Field(FIELD_DATA, "G", TYPE_TEXT);
    At(form, form.number).SummaryType = SUMMARY_MIN;
    form.Section(SECTION_SORT_HEADER_1, 10);
    form.Section(SECTION_DETAIL_1, 10);
    form.Section(SECTION_SORT_FOOTER_1, 50);
    form.FieldItem(SECTION_SORT_FOOTER_1, 200, 0, 400, 50, form.number);
    form.Break(group, group, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(
        run.Run({{{"G", "A"}, {"N", "5"}}, {{"G", "B"}, {"N", "9"}}, {{"G", "B"}, {"N", "7"}}}), 0)
        << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"0", "7"}));
}

TEST(RecordDriver, TextWithoutAValueBreaksAtEveryRecord) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    ASSERT_EQ(run.Feed(Pair("A", "x")), 0);
    Session *session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    EXPECT_EQ(tessarine::DetectBreak(session), 2);
    FieldRecord *inner = &session->form.Fields[2];
    char *text = inner->TextValue;
    inner->TextValue = nullptr;
    EXPECT_EQ(tessarine::DetectBreak(session), 1);
    inner->TextValue = text;
    FieldRecord *input = &session->run.InputTable[2];
    text = input->TextValue;
    input->TextValue = nullptr;
    EXPECT_EQ(tessarine::DetectBreak(session), 1);
    input->TextValue = text;
    EXPECT_EQ(tessarine::DetectBreak(session), 2);
    run.Finish();
}

TEST(RecordDriver, GroupsFirstRowIsOverBehindItsFirstRecord) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    const Session *session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    EXPECT_EQ(session->run.FirstInGroup, 1);
    for (int record = 0; record < 3; ++record) {
        ASSERT_EQ(run.Feed(Pair("A", "x")), 0);
        EXPECT_EQ(session->run.FirstInGroup, 0) << record;
    }
    run.Finish();
}

namespace {

// Rows of two inches, and the page's number in its footer.
struct PageNumbers : NumberForm {
    explicit PageNumbers(int flags) {
        const int page = Field(FIELD_SYSTEM, "SYS->PAGE", TYPE_NUMERIC);
        At(*this, page).TableIndex = SYSTEM_PAGE;
        At(*this, page).NegativePrefix[0] = 0;
        Section(SECTION_DETAIL_1, 500, flags);
        FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, number);
        Section(SECTION_PAGE_FOOTER, 50);
        FieldItem(SECTION_PAGE_FOOTER, 200, 0, 400, 50, page);
    }
};

} // namespace

TEST(RecordDriver, PageOfARecordIsTheNextOnceTheBodyIsFull) {
    MessageBoxes boxes;
    ReportRun run{PageNumbers{SECTION_ADVANCE_AFTER}};
    ASSERT_EQ(run.Run({{{"N", "7"}}, {{"N", "8"}}}), 0) << boxes.LastText();
    ASSERT_EQ(run.page_count, 2);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"7", "2"})); // the second record is at work
}

TEST(RecordDriver, FooterOfAPageWithRoomLeftPrintsThePagesOwnNumber) {
    MessageBoxes boxes;
    ReportRun run{PageNumbers{0}};
    std::vector<Record> records;
    for (const char *number : {"5", "6", "7", "8", "9"}) records.push_back({{"N", number}});
    ASSERT_EQ(run.Run(records), 0) << boxes.LastText();
    ASSERT_EQ(run.page_count, 2);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"5", "6", "7", "8", "1"}));
    EXPECT_EQ(PageWords(run.Report(), 1), (Lines{"9", "2"}));
}

TEST(RecordDriver, CalculationOfARowIsMadeForEachRecord) {
    NumberForm form;
    const int calc = form.Field(FIELD_CALC, "CALC->C", TYPE_NUMERIC);
    At(form, calc).NegativePrefix[0] = 0;
    FormBuilder::Store({form.number}, At(form, calc).FieldTokens);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, calc);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"N", "1"}}, {{"N", "2"}}, {{"N", "3"}}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"1", "2", "3"}));
}

TEST(RecordDriver, BreakCalculationReadsTheNewRecord) {
    NumberForm form;
    const int calc = form.Field(FIELD_CALC, "CALC->B", TYPE_NUMERIC);
    FormBuilder::Store({form.number}, At(form, calc).FieldTokens);
    form.Section(SECTION_SORT_HEADER_1, 50);
    form.Label(SECTION_SORT_HEADER_1, 200, 0, 400, 50, "group");
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, form.number);
    form.Break(form.number, calc, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"N", "1"}}, {{"N", "1"}}, {{"N", "2"}}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"group", "1", "1", "group", "2"}));
}

TEST(RecordDriver, StopBeforeTheFirstRecordIsForgottenAtIt) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    Session *session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    session->report.CancelState = tessarine::CANCEL_STOP;
    ASSERT_EQ(run.Feed(Pair("A", "x")), 0);
    EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_NONE);
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"A", "x", "row", "end", "x", "END", "A"}));
}

TEST(RecordDriver, UnknownSessionGives18) {
    EXPECT_EQ(tessarine::RepRec(99, 0), CODE_NO_SESSION);
    EXPECT_EQ(tessarine::RepExit(99, 0, nullptr), CODE_NO_SESSION);
}

namespace {

// A host's routine that calls back into the run that calls it.
int busy_slot;
std::vector<int> answers;
void ReEnter() {
    answers.push_back(tessarine::RepRec(busy_slot, 0));
    answers.push_back(tessarine::RepExit(busy_slot, 0, nullptr));
}
int WINAPI PaintAndReEnter(HDC, int32_t, int32_t, int32_t, const int32_t *, int32_t) {
    ReEnter();
    return 0;
}

} // namespace

TEST(RecordDriver, RunInsideACallTakesNoOther) {
    NumberForm form;
    const int zero = form.Constant("0", TYPE_NUMERIC, 0);
    const int picture = form.Field(FIELD_DATA, "PICTURE", TYPE_PICTURE);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, picture);
    form.FieldItem(SECTION_DETAIL_1, 700, 0, 400, 50, form.number);
    FormBuilder::Store({zero, 506, form.number, 507, zero},
                       form.sections[SECTION_DETAIL_1].SectionFilter);
    MessageBoxes boxes;
    boxes.OnDialog("Fatal Error", [](DialogDriver box) {
        ReEnter();
        box.Press(IDOK);
    });
    ReportRun run(form);
    run.params.PictureProc = PaintAndReEnter;
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    busy_slot = run.params.SessionId;
    answers.clear();
    EXPECT_EQ(run.Feed({{"N", "7"}}), 0);
    EXPECT_EQ(run.Feed({{"N", "0"}}), CODE_EXPRESSION);
    EXPECT_EQ(answers, std::vector<int>(4, CODE_NO_SESSION));
    EXPECT_EQ(run.Finish(), 0);
    EXPECT_EQ(PageWords(run.Report(), 0), Lines{"7"});
}

TEST(RecordDriver, RecordOfStableWidthsTakesNoMemory) {
    MessageBoxes boxes;
    ReportRun run{TwoLevels{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    ASSERT_EQ(run.Feed(Pair("A", "x")), 0);
    tessarine::FailAllocation(1);
    for (const char *inner : {"x", "y", "y"}) EXPECT_EQ(run.Feed(Pair("A", inner)), 0);
    tessarine::FailAllocation(0);
    EXPECT_TRUE(boxes.Log().empty());
    run.Finish();
}
