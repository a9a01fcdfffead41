#include <gtest/gtest.h>

#include "frame/session_table.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

// A record fills a page.
struct PageForm : FormBuilder {
    PageForm() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 2400);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

int RunPages(ReportRun *run, int pages) {
    if (const int code = run->Start()) return code;
    for (int page = 0; page < pages; ++page)
        if (const int code = run->Feed({{"NAME", "page"}})) return code;
    return run->Finish();
}

} // namespace

TEST(PageLimit, FiveThousandPagesSucceed) {
    MessageBoxes boxes;
    ReportRun run{PageForm{}};
    ASSERT_EQ(RunPages(&run, MAX_SCR_PAGES), 0) << boxes.LastText();
    EXPECT_EQ(run.page_count, MAX_SCR_PAGES);
    EXPECT_EQ(PagesOf(run.Report()).size(), static_cast<size_t>(MAX_SCR_PAGES));
}

// A further record ends the page while the run still stands.
TEST(PageLimit, PageAfterThemStopsWithItsMessageBehindItsBytes) {
    MessageBoxes boxes;
    ReportRun run{PageForm{}};
    EXPECT_EQ(RunPages(&run, MAX_SCR_PAGES + 2), CODE_FILE);
    EXPECT_EQ(boxes.LastText(), "PageCount exceeding MAX_SCR_PAGES (TransferMetaFile)");
    EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
    const Session *session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    ASSERT_NE(session, nullptr);
    const uint32_t *table = session->pages.PageTable;
    const size_t page = table[MAX_SCR_PAGES] - table[MAX_SCR_PAGES - 1]; // all are alike
    const std::string report = run.Report();
    ASSERT_EQ(report.size(), table[MAX_SCR_PAGES] + page);
    EXPECT_EQ(report.substr(table[MAX_SCR_PAGES]), report.substr(table[MAX_SCR_PAGES - 1], page));
    EXPECT_EQ(run.Finish(), CODE_FILE);
}
