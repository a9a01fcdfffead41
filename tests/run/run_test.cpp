// Whole runs: what lands on the pages, in which order.
#include <gtest/gtest.h>

#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

using Lines = std::vector<std::string>;

// Groups of A, each with a header, its records and a total of N.
struct GroupedForm : FormBuilder {
    int group = Field(FIELD_DATA, "GROUP", TYPE_TEXT);
    int number = Field(FIELD_DATA, "N", TYPE_NUMERIC);
    int total = Field(FIELD_DATA, "N", TYPE_NUMERIC);

    GroupedForm() {
        for (FieldRecord &field : fields) field.ThousandsChar[0] = 0;
        fields[static_cast<size_t>(total)].SummaryType = SUMMARY_TOTAL;
        Section(SECTION_SORT_HEADER_1, 50);
        FieldItem(SECTION_SORT_HEADER_1, 200, 0, 400, 50, group);
        Section(SECTION_DETAIL_1, 50);
        FieldItem(SECTION_DETAIL_1, 200, 0, 400, 50, number);
        Section(SECTION_SORT_FOOTER_1, 50);
        FieldItem(SECTION_SORT_FOOTER_1, 200, 0, 400, 50, total);
        Break(group, group, SECTION_SORT_HEADER_1);
    }
};

} // namespace

TEST(Run, DetailRecordsStandOneBelowTheOther) {
    FormBuilder form;
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 225, 0, 500, 50, name).ItemFlags = FLAG_LEFT | FLAG_TOP;
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"NAME", "one"}}, {{"NAME", "two"}}}), 0) << boxes.LastText();
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(run.page_count, 1);
    // The margin of 125 less the printer's offset of 63, the item's 100 and the inset of 10.
    EXPECT_EQ(PageLines(run.Report(), 0), (Lines{"172,62 one", "172,112 two"}));
}

TEST(Run, FooterPrintsTheTotalOfItsGroupAndHeadersPrintOnceAGroup) {
    GroupedForm form;
    form.fields[static_cast<size_t>(form.total)].FieldKind = FIELD_CALC;
    std::snprintf(form.fields[static_cast<size_t>(form.total)].FieldName, 10, "CALC->T");
    const int operand = form.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    form.fields[static_cast<size_t>(operand)].SummaryType = SUMMARY_TOTAL;
    form.fields[static_cast<size_t>(operand)].ThousandsChar[0] = 0;
    FormBuilder::Store({519, operand}, form.fields[static_cast<size_t>(form.total)].FieldTokens);
    form.fields[static_cast<size_t>(form.total)].SummaryType = SUMMARY_VALUE;
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    for (const auto &[group, number] :
         std::vector<std::pair<std::string, int>>{{"A", 1}, {"A", 2}, {"B", 5}}) {
        for (int row = 0; row < run.params.FieldTotal; ++row)
            if (!strcmp(run.params.FieldTable[row].FieldName, "N"))
                run.params.FieldTable[row].LongValue = number;
        ASSERT_EQ(run.Feed({{"GROUP", group}}), 0);
    }
    ASSERT_EQ(run.Finish(), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"A", " 1", " 2", " 3", "B", " 5", " 5"}));
}

TEST(Run, RecordThatTheFilterRefusesIsInvisible) {
    FormBuilder form;
    const int number = form.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    const int two = form.Constant("2", TYPE_NUMERIC, 2);
    form.Filter({number, 508, two});
    form.Section(SECTION_DETAIL_1, 50);
    form.FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, number);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"N", "1"}}, {{"N", "2"}}, {{"N", "3"}}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{" 1", " 3"}));
    EXPECT_EQ(+HeaderOf(run.Report()).RecordCount, 2);
}

TEST(Run, MissingFormFileIsToldAndGivesOne) {
    FormBuilder form;
    MessageBoxes boxes;
    ReportRun run(form);
    std::snprintf(run.params.FormFile, sizeof run.params.FormFile, "C:\\NOT\\THERE.FP");
    EXPECT_EQ(run.Start(), CODE_FILE);
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"Fatal Error", "Form File Not Found!", {IDOK}}));
}
