// What the first record opens a report with, and what its last page ends with.
#include <gtest/gtest.h>

#include <cstring>

#include "frame/session_table.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

using Lines = std::vector<std::string>;

// Headers of page and report, two groups, rows and a page footer, each with its name.
struct Opening : FormBuilder {
    explicit Opening(int flags = 0) {
        const int group = Field(FIELD_DATA, "G", TYPE_TEXT);
        Band(SECTION_PAGE_HEADER, "page head", flags);
        Band(SECTION_REPORT_HEADER, "report head", flags);
        Band(SECTION_SORT_HEADER_1, "group 1", flags);
        Band(SECTION_SORT_HEADER_1 + 1, "group 2", flags);
        Band(SECTION_DETAIL_1, "row");
        Band(SECTION_PAGE_FOOTER, "page foot");
        Break(group, group, SECTION_SORT_HEADER_1);
        Break(group, group, SECTION_SORT_HEADER_1 + 1);
    }
    void Band(int section, const std::string &text, int flags = 0) {
        Section(section, 50, flags);
        Label(section, 200, 0, 400, 50, text).ItemFlags = FLAG_LEFT | FLAG_TOP;
    }
};

// The pages of a run of one record, each as its words.
std::vector<Lines> PagesOfOneRecord(const FormBuilder &form) {
    MessageBoxes boxes;
    ReportRun run(form);
    EXPECT_EQ(run.Run({{{"G", "a"}}}), 0) << boxes.LastText();
    std::vector<Lines> pages;
    const std::string report = run.Report();
    for (size_t page = 0; page < PagesOf(report).size(); ++page)
        pages.push_back(PageWords(report, page));
    return pages;
}

} // namespace

TEST(Opening, PageHeaderStandsOverTheReportHeaderUnlessTheFormTurnsThemRound) {
    Opening form;
    EXPECT_EQ(PagesOfOneRecord(form), (std::vector<Lines>{{"page head", "report head", "group 1",
                                                           "group 2", "row", "page foot"}}));
    form.header.FormFlags = FORM_REPORT_HEADER_FIRST;
    EXPECT_EQ(PagesOfOneRecord(form), (std::vector<Lines>{{"report head", "page head", "group 1",
                                                           "group 2", "row", "page foot"}}));
}

TEST(Opening, NoOpeningSectionLeavesAnEmptyPageThoughItAdvancesBefore) {
    Opening form(SECTION_ADVANCE_BEFORE);
    EXPECT_EQ(PagesOfOneRecord(form), (std::vector<Lines>{{"page head", "report head", "group 1",
                                                           "group 2", "row", "page foot"}}));
    form.header.FormFlags = FORM_REPORT_HEADER_FIRST;
    EXPECT_EQ(PagesOfOneRecord(form), (std::vector<Lines>{{"report head", "page head", "group 1",
                                                           "group 2", "row", "page foot"}}));
}

TEST(Opening, ReportHeaderThatComesFirstAndAdvancesHasItsOwnPage) {
    Opening form;
    form.header.FormFlags = FORM_REPORT_HEADER_FIRST;
    form.sections[SECTION_REPORT_HEADER].SectionFlags = SECTION_ADVANCE_AFTER;
    form.breaks.clear();
    EXPECT_EQ(PagesOfOneRecord(form),
              (std::vector<Lines>{{"report head"}, {"page head", "row", "page foot"}}));
}

TEST(Opening, SectionsReadTheFirstRecord) {
    FormBuilder form;
    const int name = form.Field(FIELD_DATA, "NAME", TYPE_TEXT);
    const int calc = form.Field(FIELD_CALC, "CALC->C", TYPE_TEXT);
    FormBuilder::Store({name}, form.fields[static_cast<size_t>(calc)].FieldTokens);
    form.Section(SECTION_REPORT_HEADER, 50);
    form.FieldItem(SECTION_REPORT_HEADER, 200, 0, 400, 50, name);
    form.FieldItem(SECTION_REPORT_HEADER, 700, 0, 400, 50, calc);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"NAME", "first"}}, {{"NAME", "second"}}}), 0) << boxes.LastText();
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"first", "first"}));
}

TEST(Opening, LastPageFooterStandsAtTheBodysBottomLikeAllOthers) {
    Opening form;
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    const int bottom = tessarine::GetSessionPointer(nullptr, run.params.SessionId)->run.BodyBottom;
    ASSERT_EQ(run.Feed({{"G", "a"}}), 0);
    ASSERT_EQ(run.Finish(), 0);
    const std::string foot = PageLines(run.Report(), 0).back();
    EXPECT_NE(foot.find("," + std::to_string(bottom) + " page foot"), std::string::npos) << foot;
}

TEST(Opening, GroupsNumberTheirPagesFromOneAndPagesGoOnCounting) {
    FormBuilder form;
    const int group = form.Field(FIELD_DATA, "G", TYPE_TEXT);
    const int page = form.Field(FIELD_SYSTEM, "SYS->PAGE", TYPE_NUMERIC);
    form.fields[static_cast<size_t>(page)].TableIndex = SYSTEM_PAGE;
    form.fields[static_cast<size_t>(page)].NegativePrefix[0] = 0;
    form.Section(SECTION_PAGE_HEADER, 50);
    form.FieldItem(SECTION_PAGE_HEADER, 200, 0, 400, 50, page);
    form.Section(SECTION_SORT_HEADER_1, 50, SECTION_RESET_PAGE | SECTION_ADVANCE_BEFORE);
    form.FieldItem(SECTION_SORT_HEADER_1, 200, 0, 400, 50, group);
    form.Section(SECTION_DETAIL_1, 2000);
    form.Label(SECTION_DETAIL_1, 200, 0, 400, 50, "row");
    form.Break(group, group, SECTION_SORT_HEADER_1);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Run({{{"G", "a"}}, {{"G", "a"}}, {{"G", "b"}}, {{"G", "b"}}, {{"G", "c"}}}), 0)
        << boxes.LastText();
    const std::string report = run.Report();
    std::vector<Lines> pages;
    for (size_t number = 0; number < 5; ++number) pages.push_back(PageWords(report, number));
    EXPECT_EQ(
        pages,
        (std::vector<Lines>{
            {"1", "a", "row"}, {"2", "row"}, {"1", "b", "row"}, {"2", "row"}, {"1", "c", "row"}}));
    EXPECT_EQ(run.page_count, 5);
}

TEST(Opening, UserFieldsTextIsAsWideAsThePromptsField) {
    FormBuilder form;
    const int user = form.UserField("X", TYPE_TEXT, 12); // not asked
    form.users[user].UserWidth = 33;
    const int field = form.Field(FIELD_USER, "DLG->X", TYPE_TEXT, 5);
    form.fields[static_cast<size_t>(field)].TableIndex = static_cast<int16_t>(user);
    MessageBoxes boxes;
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    EXPECT_EQ(+run.Row("DLG->X")->FieldWidth, 33);
    run.Finish();
}
