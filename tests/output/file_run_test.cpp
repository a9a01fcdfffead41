// Runs to disk under the user's eyes: dialogs, cancelling, closing message.
#include <cstring>

#include "commands.h"
#include "tests/support/failing_call.h"
#include "tests/support/page_texts.h"
#include "tests/support/visible_run.h"

using namespace tessarine;

namespace {

using Calls = std::vector<std::string>;

class RunToDisk : public VisibleRun {};

} // namespace

TEST_F(RunToDisk, DialogNamesTheFileBehindItsFoldersAndCountsPages) {
    ASSERT_EQ(Start('F'), 0);
    EXPECT_EQ(Dialog(), nullptr);
    ASSERT_EQ(Feed(1), 0);
    ASSERT_TRUE(IsWindowVisible(Dialog()));
    EXPECT_EQ(Dialog().Text(PROGRESS_DEVICE), "OUT.FRC");
    EXPECT_EQ(Dialog().Text(PROGRESS_PAGES), "0");
    EXPECT_FALSE(IsWindowEnabled(host.Get()));
    ASSERT_EQ(Feed(5), 0);
    EXPECT_EQ(Dialog().Text(PROGRESS_PAGES), "1");
    const HWND dialog = Dialog();
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(Last(), (BoxRecord{"Report Over", "6 Record(s) Printed", {IDOK}}));
}

TEST_F(RunToDisk, DialogNamesAFileWithoutFoldersWhole) {
    const TemporaryFolder folder;
    char before[MAX_PATH];
    GetCurrentDirectoryA(sizeof before, before);
    SetCurrentDirectoryA(folder.Root().c_str());
    output = "PLAIN.FRC";
    EXPECT_EQ(Start('F'), 0);
    EXPECT_EQ(Feed(1), 0);
    EXPECT_EQ(Dialog().Text(PROGRESS_DEVICE), "PLAIN.FRC");
    EXPECT_EQ(run->Finish(), 0);
    SetCurrentDirectoryA(before);
}

TEST_F(RunToDisk, RelativeNameCountsFromWhereTheRunBegan) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    char before[MAX_PATH];
    GetCurrentDirectoryA(sizeof before, before);
    SetCurrentDirectoryA(folder.Root().c_str());
    output = "PLAIN.FRC";
    EXPECT_EQ(Start('F'), 0);
    SetCurrentDirectoryA(elsewhere.Root().c_str());
    EXPECT_EQ(Feed(6), 0);
    EXPECT_EQ(run->Finish(), 0);
    SetCurrentDirectoryA(before);
    EXPECT_EQ(PagesOf(ReadWholeFile(folder.Path("PLAIN.FRC"))).size(), 2u);
    EXPECT_EQ(GetFileAttributesA(elsewhere.Path("PLAIN.FRC").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(RunToDisk, OutputThatIsTheFormIsRefusedHoweverItIsSpelled) {
    run = std::make_unique<ReportRun>(ListForm());
    const std::string form = run->params.FormFile;
    const std::string bytes = ReadWholeFile(form);
    const std::string folder = form.substr(0, form.rfind('\\'));
    const std::string name = form.substr(folder.size() + 1);
    for (const std::string &path : {form, folder + "\\.\\" + name, folder + "\\form.fp"}) {
        boxes.Clear();
        std::strcpy(run->params.OutputFile, path.c_str());
        EXPECT_EQ(run->Start(), CODE_NO_OUTPUT_FILE) << path;
        EXPECT_EQ(boxes.Log(),
                  (std::vector<BoxRecord>{{"", "The output file is the form file!", {IDOK}}}));
        EXPECT_EQ(ReadWholeFile(form), bytes);
    }
}

TEST_F(RunToDisk, CancelAheadOfAnyPageLeavesNoHalfWrittenReport) {
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(2), 0);
    SendMessageA(Dialog(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(GetFileAttributesA(run->params.OutputFile), INVALID_FILE_ATTRIBUTES);
}

TEST_F(RunToDisk, CancelBehindTheLastPageEndComesTooLate) {
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(3), 0);
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(boxes.Texts(), (Calls{"3 Record(s) Printed"}));
    const std::string report = run->Report();
    ASSERT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(+HeaderOf(report).RecordCount, 3);
}

TEST_F(RunToDisk, CancelAtAPageEndLeavesAValidFileOfTheFinishedPages) {
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(10), 0);
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
    const std::string report = run->Report();
    EXPECT_EQ(+HeaderOf(report).Magic, SIGNATURE_REPORT);
    ASSERT_EQ(+HeaderOf(report).PageCount, 2);
    EXPECT_EQ(PagesOf(report).size(), 2u);
    EXPECT_EQ(PageWords(report, 0), Calls(5, "record"));
    EXPECT_EQ(PageWords(report, 1), Calls(5, "record"));
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}

TEST_F(RunToDisk, CancelThatTheHostsOwnLoopHandsOutLeavesAValidFileAtThePageEnd) {
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(2), 0);
    Dialog().Send(IDCANCEL);
    EXPECT_EQ(Feed(3), 0);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
    const std::string report = run->Report();
    ASSERT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(PageWords(report, 0), Calls(5, "record"));
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(RunToDisk, CancelInTheClosingSectionsLeavesAValidFileToo) {
    ASSERT_EQ(Start('F', ListForm(true)), 0);
    ASSERT_EQ(Feed(4), 0);
    Dialog().Press(IDCANCEL);
    EXPECT_EQ(run->Finish(), CODE_CANCELLED);
    EXPECT_FALSE(Open());
    const std::string report = run->Report();
    ASSERT_EQ(+HeaderOf(report).PageCount, 1);
    EXPECT_EQ(PageWords(report, 0), Calls(4, "record"));
}

TEST_F(RunToDisk, SilentRunHasNoDialog) {
    silent = 1;
    ASSERT_EQ(Start('F'), 0);
    ASSERT_EQ(Feed(6), 0);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(RunToDisk, ReportOfNoRecordsLeavesNoFileAndSays0UnlessSilent) {
    for (const uint32_t quiet : {0u, 1u}) {
        silent = quiet;
        boxes.Clear();
        ASSERT_EQ(Start('F'), 0);
        EXPECT_EQ(run->Finish(), 0);
        EXPECT_EQ(boxes.Texts(), quiet ? Calls{} : Calls{"0 Record(s) Printed"});
        EXPECT_EQ(GetFileAttributesA(run->params.OutputFile), INVALID_FILE_ATTRIBUTES);
    }
}

namespace {
BOOL WINAPI CancelAtOnce(HWND dialog) { return PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); }
} // namespace

// The file is deleted whenever no record has been printed.
TEST_F(RunToDisk, CancelAtTheEndOfATitlePageLeavesNoFile) {
    ASSERT_EQ(Start('F', TitlePage()), 0);
    const ReplacedCall dialog_comes_up("UpdateWindow", CancelAtOnce);
    EXPECT_EQ(Feed(1), CODE_CANCELLED);
    EXPECT_EQ(run->Finish(), 0);
    EXPECT_EQ(GetFileAttributesA(run->params.OutputFile), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_FALSE(Open());
}
