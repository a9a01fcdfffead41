// A preview of as many pages as there can be.
#include <algorithm>

#include "state/windows.h"

#include <psapi.h>

#include "tests/support/preview_run.h"
#include "tests/support/system_objects.h"

namespace {

constexpr int TURNS = 250; // at either end

// A record fills a page.
struct OneAPage : FormBuilder {
    OneAPage() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 2400);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

class PreviewLoad : public PreviewRun {
protected:
    PreviewLoad() : PreviewRun(OneAPage{}) {}

    void Turn(int command, int times) {
        for (int turn = 0; turn < times; ++turn) Command(command);
    }
    void Track(int position) { Scroll(WM_VSCROLL, SB_THUMBTRACK, position); }
};

double MemoryNow() {
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage);
}

} // namespace

TEST_F(PreviewLoad, FiveThousandPagesAreTurnedToTheLastAndBackWithoutGrowth) {
    Finish(MAX_SCR_PAGES);
    Command(COMMAND_FIT); // each step is a page now
    Turn(COMMAND_PAGE_DOWN, TURNS);
    ASSERT_EQ(Page(), 1 + TURNS);
    const int objects = CountGdiObjects();
    const int user_objects = CountUserObjects();
    const double memory = MemoryNow();
    for (int position = 10; position <= 100; ++position) {
        Track(position);
        EXPECT_EQ(Page(), std::min(position * MAX_SCR_PAGES / 100 + 1, int{MAX_SCR_PAGES}));
    }
    Turn(COMMAND_PAGE_UP, TURNS);
    EXPECT_EQ(Page(), MAX_SCR_PAGES - TURNS);
    Turn(COMMAND_PAGE_DOWN, TURNS + 1); // the last one leads nowhere
    EXPECT_EQ(Page(), MAX_SCR_PAGES);
    EXPECT_EQ(ScrollPosition(SB_VERT), 99);
    for (int position = 100; position >= 0; --position) Track(position);
    EXPECT_EQ(Page(), 1);
    EXPECT_LE(CountGdiObjects(), objects);
    EXPECT_LE(CountUserObjects(), user_objects);
    EXPECT_LE(MemoryNow(), 1.05 * memory);
    EXPECT_TRUE(boxes.Log().empty());
}
