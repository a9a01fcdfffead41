#include <cstring>
#include <memory>

#include "frame/windows.h"

#include <psapi.h>

#include "run/run.h"
#include "tests/support/gdi_objects.h"
#include "tests/support/preview_run.h"

namespace {

constexpr int MANY_PAGES = 5000;

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
};

double MemoryNow() {
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage);
}

// A preview among others of the process.
struct OneOfMany {
    explicit OneOfMany(const std::string &folder) : run(FiveAPage{}) {
        run.params.Device = 'S';
        run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
        run.params.WindowWidth = run.params.WindowHeight = 300;
        std::strcpy(run.params.TempDir, folder.c_str());
        EXPECT_EQ(run.Start(), 0);
        session = tessarine::GetSessionPointer(nullptr, run.params.SessionId);
    }
    ReportRun run;
    Session *session;
};

} // namespace

TEST_F(PreviewLoad, ManyPagesAreTurnedToTheLastAndBackWithoutGrowth) {
    Finish(MANY_PAGES);
    Command(696); // each step is a page
    for (int page = 1; page <= 100; ++page) Command(601);
    ASSERT_EQ(Page(), 101);
    const int objects = CountGdiObjects();
    const double memory = MemoryNow();
    while (Page() < MANY_PAGES) Command(601);
    Command(601);
    EXPECT_EQ(Page(), MANY_PAGES);
    EXPECT_EQ(GetScrollPos(Window(), SB_VERT), 99);
    EXPECT_LE(CountGdiObjects(), objects);
    EXPECT_LE(MemoryNow(), 1.05 * memory);
    while (Page() > 1) Command(600);
    EXPECT_LE(CountGdiObjects(), objects);
    EXPECT_LE(MemoryNow(), 1.05 * memory);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST(PreviewsTogether, TenAtOnceInOneFolderKeepTheirPages) {
    MessageBoxes boxes;
    TemporaryFolder folder;
    std::vector<std::unique_ptr<OneOfMany>> previews;
    for (int number = 0; number < 10; ++number)
        previews.push_back(std::make_unique<OneOfMany>(folder.Root()));
    for (int record = 0; record < 12; ++record)
        for (size_t number = 0; number < previews.size(); ++number)
            ASSERT_EQ(previews[number]->run.Feed({{"NAME", "of " + std::to_string(number)}}), 0)
                << boxes.LastText();
    for (const auto &preview : previews) ASSERT_EQ(preview->run.Finish(), 0) << boxes.LastText();
    for (size_t number = 0; number < previews.size(); ++number) {
        Session *session = previews[number]->session;
        SendMessageA(session->device.Window, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100), 0);
        EXPECT_EQ(session->pages.ShownPageIndex, 2);
        const std::string report = ReadWholeFile(session->pages.ReportPath);
        for (size_t other = 0; other < previews.size(); ++other)
            EXPECT_EQ(report.find("of " + std::to_string(other)) != std::string::npos,
                      other == number);
    }
    for (const auto &preview : previews)
        SendMessageA(preview->session->device.Window, WM_CLOSE, 0, 0);
    WIN32_FIND_DATAA found{};
    EXPECT_EQ(FindFirstFileA(folder.Path("*.MF*").c_str(), &found), INVALID_HANDLE_VALUE);
    EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
}
