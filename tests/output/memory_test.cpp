#include <gtest/gtest.h>

#include "state/windows.h"

#include <psapi.h>

#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

struct ListForm : FormBuilder {
    ListForm() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 44);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 44, name);
    }
};

// Prints that many records: how many pages they made.
int Print(int records) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    EXPECT_EQ(run.Start(), 0) << boxes.LastText();
    for (int record = 0; record < records; ++record) EXPECT_EQ(run.Feed({{"NAME", "record"}}), 0);
    EXPECT_EQ(run.Finish(), 0);
    return run.page_count;
}

// The most that this process has had at once so far.
double PeakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PeakPagefileUsage);
}

} // namespace

TEST(Memory, LongReportNeedsNoMoreThanAShortOne) {
    const int pages = Print(10000);
    const double peak = PeakMemory();
    ASSERT_GT(peak, 0.0);
    EXPECT_GE(Print(100000), 10 * pages - 10);
    EXPECT_LE(PeakMemory(), 1.1 * peak);
}
