#include <cstring>
#include <memory>

#include "tests/support/preview_run.h"

namespace {

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
        SendMessageA(session->Window, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 100), 0);
        EXPECT_EQ(session->pages.ShownPageIndex, 2);
        const std::string report = ReadWholeFile(session->pages.ReportPath);
        for (size_t other = 0; other < previews.size(); ++other)
            EXPECT_EQ(report.find("of " + std::to_string(other)) != std::string::npos,
                      other == number);
    }
    for (const auto &preview : previews) SendMessageA(preview->session->Window, WM_CLOSE, 0, 0);
    WIN32_FIND_DATAA found{};
    EXPECT_EQ(FindFirstFileA(folder.Path("*.MF*").c_str(), &found), INVALID_HANDLE_VALUE);
    EXPECT_TRUE(boxes.Log().empty()) << boxes.LastText();
}
