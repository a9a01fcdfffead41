// The names of page files: whose they are, and what becomes of those that nobody owns.
#include "output/page_files.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"
#include "tests/support/tess_program.h"

using namespace tessarine;

namespace {

constexpr const char *FOLDER = "TESSARINE_TEST_FOLDER"; // where a started copy keeps its pages

// A preview that has made its names in the folder.
class NamedPages {
public:
    explicit NamedPages(const TemporaryFolder &folder) {
        std::strcpy(session->RunBlock.TempDir, folder.Root().c_str());
        std::strcpy(session->report.TimeText, "14:05:33");
        session->OutputToScreen = 1;
        MakePageFileNames(session);
    }
    ~NamedPages() { DeletePageFiles(session); }

    const PageStoreState &Pages() { return session->pages; }

private:
    BareSession session;
};

bool Stands(const std::string &path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

int FilesIn(const TemporaryFolder &folder) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(folder.Path("*.MF*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    int count = 1;
    while (FindNextFileA(search, &found)) ++count;
    FindClose(search);
    return count;
}

// A copy of this program that does one of the disabled tests below.
std::unique_ptr<Running> StartCopy(const std::string &test, const std::string &log) {
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    return std::make_unique<Running>(
        program, "--gtest_also_run_disabled_tests --gtest_filter=PageFiles.DISABLED_" + test, log);
}

} // namespace

TEST(PageFiles, TwoSessionsOfTheSameSecondHaveNamesOfTheirOwn) {
    const TemporaryFolder folder;
    NamedPages first(folder);
    NamedPages second(folder);
    EXPECT_EQ(std::string(first.Pages().ReportPath), folder.Path("14R05R33.MF"));
    EXPECT_EQ(std::string(first.Pages().TransferPath), folder.Path("14R05R33.MFT"));
    EXPECT_EQ(std::string(second.Pages().ReportPath), folder.Path("14S05R33.MF"));
}

// A page's transfer file is deleted before the next one is made.
TEST(PageFiles, NameStaysItsOwnersWhileNoFileOfItStands) {
    const TemporaryFolder folder;
    NamedPages first(folder);
    DeleteFileA(first.Pages().TransferPath);
    DeleteFileA(first.Pages().ReportPath);
    NamedPages second(folder);
    EXPECT_STRNE(second.Pages().TransferPath, first.Pages().TransferPath);
}

TEST(PageFiles, NameIsFreeBehindItsOwnersEnd) {
    const TemporaryFolder folder;
    { const NamedPages first(folder); }
    EXPECT_EQ(FilesIn(folder), 0);
    NamedPages second(folder);
    EXPECT_EQ(std::string(second.Pages().ReportPath), folder.Path("14R05R33.MF"));
}

TEST(PageFiles, FilesThatNobodyOwnsAreSweptAndThoseOfALiveOneStay) {
    const TemporaryFolder folder;
    NamedPages live(folder);
    WriteWholeFile(live.Pages().ReportPath, "pages");
    WriteWholeFile(live.Pages().TransferPath, "page");
    const char *orphans[] = {"09R59R00.MF", "09r59r00.mft", "14T05R33.MFS", "14T05R33.MFP"};
    const char *others[] = {"14T05R33.MFX", "14T05R33",    "14T05R3.MF",
                            "14R0SR33.MF",  "NOTES.MF",    "14T05R33.MF.BAK",
                            "20240131.MF",  "12-05-59.MF", "25R05R33.MF"};
    for (const char *name : orphans) WriteWholeFile(folder.Path(name), "left");
    for (const char *name : others) WriteWholeFile(folder.Path(name), "of a user");
    const NamedPages next(folder);
    EXPECT_TRUE(Stands(live.Pages().ReportPath));
    EXPECT_TRUE(Stands(live.Pages().TransferPath));
    for (const char *name : orphans) EXPECT_FALSE(Stands(folder.Path(name))) << name;
    for (const char *name : others) EXPECT_TRUE(Stands(folder.Path(name))) << name;
}

// ---- among processes ---------------------------------------------------------------------------

TEST(PageFiles, DISABLED_SeveralRunsOfSixPages) {
    MessageBoxes boxes;
    for (int number = 0; number < 5; ++number) {
        FiveAPage form;
        form.items[SECTION_DETAIL_1][0].height = 2400;
        ReportRun run(form);
        std::strcpy(run.params.TempDir, std::getenv(FOLDER));
        const std::vector<Record> records(6, {{"NAME", "a"}});
        ASSERT_EQ(run.Run(records), 0) << boxes.LastText();
        EXPECT_EQ(PagesOf(run.Report()).size(), 6u);
    }
}

TEST(PageFiles, RunsOfManyProcessesInOneFolderAllSucceed) {
    constexpr size_t PROCESSES = 24;
    constexpr size_t AT_ONCE = 8;
    const TemporaryFolder pages;
    const TemporaryFolder logs;
    SetEnvironmentVariableA(FOLDER, pages.Root().c_str());
    std::vector<std::unique_ptr<Running>> copies(PROCESSES);
    for (size_t number = 0; number < PROCESSES + AT_ONCE; ++number) {
        if (number >= AT_ONCE) {
            const Outcome outcome = copies[number - AT_ONCE]->Wait();
            EXPECT_EQ(outcome.code, 0u) << outcome.output;
        }
        if (number < PROCESSES)
            copies[number] = StartCopy("SeveralRunsOfSixPages", logs.Path(std::to_string(number)));
    }
    EXPECT_EQ(FilesIn(pages), 0);
}

TEST(PageFiles, DISABLED_PreviewThatIsKilled) {
    MessageBoxes boxes;
    ReportRun run{FiveAPage{}};
    run.params.Device = 'S';
    run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
    std::strcpy(run.params.TempDir, std::getenv(FOLDER));
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    for (int record = 0; record < 12; ++record) ASSERT_EQ(run.Feed({{"NAME", "a"}}), 0);
    TerminateProcess(GetCurrentProcess(), 7);
}

TEST(PageFiles, WhatAKilledRunLeftGoesWithTheNextRun) {
    const TemporaryFolder pages;
    const TemporaryFolder logs;
    SetEnvironmentVariableA(FOLDER, pages.Root().c_str());
    const Outcome killed = StartCopy("PreviewThatIsKilled", logs.Path("LOG"))->Wait();
    ASSERT_EQ(killed.code, 7u) << killed.output;
    EXPECT_GE(FilesIn(pages), 2);
    MessageBoxes boxes;
    ReportRun run{FiveAPage{}};
    std::strcpy(run.params.TempDir, pages.Root().c_str());
    ASSERT_EQ(run.Run({{{"NAME", "a"}}}), 0) << boxes.LastText();
    EXPECT_EQ(FilesIn(pages), 0);
}
