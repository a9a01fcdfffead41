#include "output/page_store.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "output/page_files.h"
#include "output/report_file.h"
#include "output/saved_report.h"
#include "tests/support/entry_code.h"
#include "tests/support/failing_call.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

using namespace tessarine;

// A record fills a page.
struct PageForm : FormBuilder {
    PageForm() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 2400);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

BoxRecord Fatal(const std::string &text) { return {"Fatal Error", text, {IDOK}}; }
BoxRecord Plain(const std::string &text) { return {"", text, {IDOK}}; }

// A session with a page table and a copy buffer, and files to copy between.
class PageStore : public testing::Test {
protected:
    PageStore() {
        AllocPageStore(session);
        session->printer.DevMode = &mode;
    }
    ~PageStore() override {
        session->printer.DevMode = nullptr;
        ReleasePageStore(session);
    }

    int Code(const std::function<void()> &body) { return EntryCode(session, body); }
    int Copy(const std::string &from, int64_t start, const std::string &to, int64_t place,
             int64_t count) {
        return Code([&] { CopyFileData(session, from.c_str(), start, to.c_str(), place, count); });
    }
    int Finish(const std::string &path) {
        return Code([&] { WriteOutputHdrFtr(session, path.c_str()); });
    }
    std::string Put(const std::string &name, const std::string &bytes) const {
        WriteWholeFile(folder.Path(name), bytes);
        return folder.Path(name);
    }
    BoxRecord Last() const { return boxes.Log().empty() ? BoxRecord{} : boxes.Log().back(); }

    MessageBoxes boxes;
    TemporaryFolder folder;
    BareSession session;
    DEVMODEA mode{};
};

} // namespace

// ---- copying -----------------------------------------------------------------------------------

TEST_F(PageStore, CopyKeepsWhatLiesAroundTheStretch) {
    const std::string from = Put("FROM", "0123456789");
    const std::string to = Put("TO", "abcdefghij");
    EXPECT_EQ(Copy(from, 2, to, 4, 3), 0);
    EXPECT_EQ(ReadWholeFile(to), "abcd234hij");
}

TEST_F(PageStore, CopyBehindTheEndOfANewFileLeavesAHole) {
    const std::string from = Put("FROM", "0123456789");
    EXPECT_EQ(Copy(from, 0, folder.Path("NEW"), 490, 10), 0);
    EXPECT_EQ(ReadWholeFile(folder.Path("NEW")), std::string(490, '\0') + "0123456789");
}

TEST_F(PageStore, CopyGoesOnOverManyBlocks) {
    std::string bytes;
    for (int number = 0; number < 50000; ++number) bytes += static_cast<char>(number * 7);
    EXPECT_EQ(Copy(Put("FROM", bytes), 0, folder.Path("NEW"), 0, 50000), 0);
    EXPECT_EQ(ReadWholeFile(folder.Path("NEW")), bytes);
}

TEST_F(PageStore, CopyTellsWhichFileItCouldNotOpen) {
    const std::string from = Put("FROM", "0123456789");
    EXPECT_EQ(Copy(folder.Path("MISSING"), 0, folder.Path("NEW"), 0, 1), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error opening the input file(CopyFileData)"));
    EXPECT_EQ(Copy(from, 0, folder.Path("NO\\NEW"), 0, 1), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error opening the output file(CopyFileData A)"));
    EXPECT_EQ(Copy(from, 0, folder.Root(), 0, 1), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error opening the output file(CopyFileData)"));
}

TEST_F(PageStore, CopyToALockedFileIsFatalAndChangesNothing) {
    const std::string from = Put("FROM", "0123456789");
    const std::string to = Put("TO", "abc");
    const HANDLE lock = CreateFileA(to.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(Copy(from, 0, to, 0, 10), CODE_FILE);
    CloseHandle(lock);
    EXPECT_EQ(Last(), Fatal("Error opening the output file(CopyFileData)"));
    EXPECT_EQ(ReadWholeFile(to), "abc");
}

TEST_F(PageStore, CopyTellsWhichFileItCouldNotSeek) {
    const std::string from = Put("FROM", "0123456789");
    EXPECT_EQ(Copy(from, -1, folder.Path("NEW"), 0, 1), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error seeking the input file(CopyFileData)"));
    EXPECT_EQ(Copy(from, 0, folder.Path("NEW"), -1, 1), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error seeking the output file(CopyFileData)"));
}

TEST_F(PageStore, CopyTellsWhetherReadingOrWritingFailed) {
    const std::string from = Put("FROM", "0123456789");
    EXPECT_EQ(Copy(from, 0, folder.Path("NEW"), 0, 11), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error reading the input file(CopyFileData)"));
    const FailingCall full("WriteFile", WriteFile, FALSE);
    EXPECT_EQ(Copy(from, 0, folder.Path("NEW"), 0, 10), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error writing the output file(CopyFileData a)"));
}

TEST_F(PageStore, FailedCopyLeavesNoFileOpen) {
    const std::string from = Put("FROM", "0123456789");
    const std::string to = Put("TO", "abc");
    {
        const FailingCall full("WriteFile", WriteFile, FALSE);
        EXPECT_EQ(Copy(from, 0, to, 0, 10), CODE_FILE);
    }
    EXPECT_TRUE(DeleteFileA(from.c_str()));
    EXPECT_TRUE(DeleteFileA(to.c_str()));
    EXPECT_EQ(GetFileAttributesA(to.c_str()), INVALID_FILE_ATTRIBUTES); // not only marked
}

// ---- header and table --------------------------------------------------------------------------

TEST_F(PageStore, EmptyHeaderReplacesTheFileThatStood) {
    const std::string path = Put("OUT.FRC", std::string(1000, 'x'));
    EXPECT_NE(WriteEmptyHeader(session, path.c_str()), 0);
    EXPECT_EQ(ReadWholeFile(path), std::string(490, '\0'));
}

TEST_F(PageStore, EmptyHeaderTellsWhatFailedAndEndsNothing) {
    EXPECT_EQ(WriteEmptyHeader(session, folder.Root().c_str()), 0);
    EXPECT_EQ(Last(), Plain("Error opening the output file(WriteEmptyHeader)"));
    const FailingCall full("WriteFile", WriteFile, FALSE);
    EXPECT_EQ(WriteEmptyHeader(session, folder.Path("OUT.FRC").c_str()), 0);
    EXPECT_EQ(Last(), Plain("Error writing to the output file(WriteEmptyHeader)"));
    EXPECT_FALSE(FileStands(folder.Path("OUT.FRC").c_str()));
}

TEST_F(PageStore, HeaderAndTableTellWhichFileCouldNotBeOpened) {
    EXPECT_EQ(Finish(folder.Path("NO\\OUT.FRC")), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error opening the output file(WriteOutputHdrFtr A)"));
    EXPECT_EQ(Finish(folder.Root()), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error opening the output file(WriteOutputHdrFtr)"));
}

TEST_F(PageStore, HeaderAndTableTellEachSeekAndWriteThatFailed) {
    const std::string path = Put("OUT.FRC", "");
    const char *seeking[] = {"Error seeking the output file(WriteOutputHdrFtr)",
                             "Error seeking the output file(WriteOutputHdrFtr a)"};
    const char *writing[] = {"Error writing the output file(WriteOutputHdrFtr)",
                             "Error writing the output file(WriteOutputHdrFtr a)"};
    for (int number = 1; number <= 2; ++number) {
        {
            const FailingCall seek("SetFilePointerEx", SetFilePointerEx, FALSE, number);
            EXPECT_EQ(Finish(path), CODE_FILE);
            EXPECT_EQ(Last(), Fatal(seeking[number - 1]));
        }
        const FailingCall full("WriteFile", WriteFile, FALSE, number);
        EXPECT_EQ(Finish(path), CODE_FILE);
        EXPECT_EQ(Last(), Fatal(writing[number - 1]));
    }
}

TEST_F(PageStore, HostsTextsAreCutToTheirPlaceInTheHeader) {
    FormHeader &form = session->form.Header;
    std::memset(form.HostName1, 'a', sizeof form.HostName1);
    std::memset(form.HostName2, 'b', sizeof form.HostName2);
    std::memset(form.HostComment, 'c', sizeof form.HostComment);
    form.HostWord = 0x1234;
    form.HostShort = 0x5678;
    mode.dmOrientation = -2;
    mode.dmPrintQuality = -4;
    session->report.PageBottomUnits = 2625;
    const std::string path = folder.Path("OUT.FRC");
    ASSERT_EQ(Finish(path), 0);
    const std::string bytes = ReadWholeFile(path);
    EXPECT_EQ(bytes.substr(210, 16), std::string(15, 'a') + '\0');
    EXPECT_EQ(bytes.substr(226, 16), std::string(15, 'b') + '\0');
    EXPECT_EQ(bytes.substr(288, 202), std::string(201, 'c') + '\0');
    EXPECT_EQ(bytes.substr(108, 100), std::string(100, '\0'));
    const ReportFileHeader header = HeaderOf(bytes);
    EXPECT_EQ(+header.HostWord, 0x1234);
    EXPECT_EQ(+header.HostShort, 0x5678);
    EXPECT_EQ(+header.Orientation, -2);
    EXPECT_EQ(+header.PrintQuality, -4);
    EXPECT_EQ(+header.PageBottom, 10.5F);
}

TEST_F(PageStore, HeaderHoldsTheMeasuresOfPagePaperAndLabelSheet) {
    PrinterState &printer = session->printer;
    printer.UsableWidth = 7.5F;
    printer.UsableHeight = 9.25F;
    printer.PaperWidth = 8.5F;
    printer.PaperHeight = 11.0F;
    mode.dmPaperSize = -5;
    mode.dmPaperLength = 2794;
    mode.dmPaperWidth = 2159;
    session->report.RecordCount = 70000;
    session->report.PageCount = 2;
    const uint32_t table[] = {490, 600, 777};
    std::memcpy(session->pages.PageTable, table, sizeof table);
    FormHeader &form = session->form.Header;
    std::strcpy(form.ReportName, "Sheet");
    form.LabelType = 5160;
    std::memset(static_cast<void *>(&form.LabelGeometry), 7, sizeof form.LabelGeometry);
    const std::string path = folder.Path("OUT.FRC");
    ASSERT_EQ(Finish(path), 0);
    const std::string bytes = ReadWholeFile(path);
    const ReportFileHeader header = HeaderOf(bytes);
    EXPECT_STREQ(header.ReportName, "Sheet");
    EXPECT_EQ(+header.PageCount, 2);
    EXPECT_EQ(+header.PageTableOffset, 777);
    EXPECT_EQ(+header.RecordCount, 70000);
    EXPECT_EQ(+header.PageWidth, 7.5F);
    EXPECT_EQ(+header.PageHeight, 9.25F);
    EXPECT_EQ(+header.PaperWidth, 8.5F);
    EXPECT_EQ(+header.PaperHeight, 11.0F);
    EXPECT_EQ(+header.PaperSize, -5);
    EXPECT_EQ(+header.PaperLength, 2794);
    EXPECT_EQ(+header.PaperWidthTenths, 2159);
    EXPECT_EQ(+header.LabelType, 5160u);
    EXPECT_EQ(bytes.substr(248, 40), std::string(40, '\7'));
    EXPECT_EQ(bytes.substr(777), std::string(reinterpret_cast<const char *>(table), sizeof table));
}

TEST_F(PageStore, TableBeyondTwoGigabytesIsWrittenAndFound) {
    constexpr uint32_t DISTANT = 0x90000000;
    session->report.PageCount = 1;
    session->pages.PageTable[0] = 490;
    session->pages.PageTable[1] = DISTANT;
    const std::string path = folder.Path("LONG.FRC");
    ASSERT_EQ(Finish(path), 0) << boxes.LastText();
    EXPECT_EQ(FileLength(path.c_str()), int64_t{DISTANT} + 8);
    session->pages.PageTable[1] = 0;
    ASSERT_EQ(ReadReportHeader(session, path.c_str()), 1) << boxes.LastText();
    ASSERT_EQ(ReadPageTable(session, path.c_str()), 1) << boxes.LastText();
    EXPECT_EQ(session->pages.PageTable[1], DISTANT);
}

TEST_F(PageStore, PageThatWouldEndBeyondWhatTheTableTellsIsFatal) {
    std::strcpy(session->pages.TransferPath, folder.Path("PAGE.MFT").c_str());
    std::strcpy(session->pages.ReportPath, folder.Path("OUT.FRC").c_str());
    StartRecorder(session, "");
    session->report.PageCount = 2;
    session->pages.PageTable[1] = UINT32_MAX - 10;
    EXPECT_EQ(Code([&] { TransferMetaFile(session); }), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error seeking the output file(CopyFileData)"));
    EXPECT_FALSE(FileStands(session->pages.ReportPath));
}

TEST_F(PageStore, ReportHeaderThatCannotBeReadTellsWhy) {
    const auto read = [&](const std::string &path) {
        return ReadReportHeader(session, path.c_str());
    };
    EXPECT_EQ(read(folder.Path("MISSING")), 0);
    EXPECT_EQ(Last(), Plain("Error opening the report file!"));
    EXPECT_EQ(read(Put("SHORT", std::string(489, 'x'))), 0);
    EXPECT_EQ(Last(), Plain("Error reading the report header!"));
    EXPECT_EQ(read(Put("FORM", std::string("\xBA\xDE\0\0", 4) + std::string(600, 'x'))), 0);
    EXPECT_EQ(Last(), Plain("Invalid Report File!"));
    boxes.Clear();
    EXPECT_NE(read(Put("GOOD", std::string("\xBB\xDE\0\0", 4) + std::string(486, '\0'))), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(PageStore, PageTableThatCannotBeReadTellsWhy) {
    const auto read = [&](const std::string &path, int32_t offset, int32_t count) {
        session->pages.Header.PageTableOffset = offset;
        session->pages.Header.PageCount = count;
        return ReadPageTable(session, path.c_str());
    };
    EXPECT_EQ(read(folder.Path("MISSING"), 490, 0), 0);
    EXPECT_EQ(Last(), Plain("Error opening the report file(ReadPageTable)"));
    const std::string table("\xEA\1\0\0", 4);
    const std::string path = Put("FILE", std::string(490, '\0') + table);
    {
        const FailingCall seek("SetFilePointerEx", SetFilePointerEx, FALSE);
        EXPECT_EQ(read(path, 490, 0), 0);
        EXPECT_EQ(Last(), Plain("Error positioning at the page table(ReadPageTable)"));
    }
    EXPECT_EQ(read(path, -1, 0), 0);
    EXPECT_EQ(Last(), Plain("Error reading the page table(ReadPageTable)"));
    for (const int32_t count : {1, -1, MAX_SCR_PAGES + 1}) {
        boxes.Clear();
        EXPECT_EQ(read(path, 490, count), 0) << count;
        EXPECT_EQ(Last(), Plain("Error reading the page table(ReadPageTable)")) << count;
    }
    boxes.Clear();
    EXPECT_NE(read(path, 490, 0), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->report.PageCount, 0);
}

// ---- pages -------------------------------------------------------------------------------------

TEST_F(PageStore, PageThatIsNoMetafileIsFatal) {
    session->OutputToFile = 1;
    std::strcpy(session->pages.ReportPath, Put("OUT.FRC", std::string(600, 'x')).c_str());
    session->pages.PageTable[0] = 490;
    session->pages.PageTable[1] = 600;
    const std::string scratch = folder.Path("PAGE.MFS");
    EXPECT_EQ(Code([&] { ReadMetaFilePage(session, 0, scratch.c_str(), nullptr); }), CODE_FILE);
    EXPECT_EQ(Last(), Fatal("Error getting the disk meta file(ReadMetaFilePage)"));
}

TEST(PageTransfer, EachStepThatFailsIsFatalWithItsWords) {
    MessageBoxes boxes;
    const auto text_of = [&](auto make) {
        ReportRun run{PageForm{}};
        EXPECT_EQ(run.Start(), 0) << boxes.LastText();
        EXPECT_EQ(run.Feed({{"NAME", "first"}}), 0);
        boxes.Clear();
        {
            const auto failing = make();
            EXPECT_EQ(run.Feed({{"NAME", "second"}}), CODE_FILE);
        }
        EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
        const std::string text = boxes.LastText();
        run.Finish();
        return text;
    };
    EXPECT_EQ(text_of([] { return FailingCall("CloseMetaFile", CloseMetaFile, nullptr); }),
              "Error Creating Meta File(TransferMetaFile)");
    EXPECT_EQ(text_of([] { return FailingCall("CopyMetaFileA", CopyMetaFileA, nullptr); }),
              "Error Copying Meta File(TransferMetaFile)");
    EXPECT_EQ(text_of([] { return FailingCall("CreateMetaFileA", CreateMetaFileA, nullptr); }),
              "Error creating metafile(TransferMetaFile)");
    EXPECT_EQ(text_of([] { return FailingCall("WriteFile", WriteFile, FALSE); }),
              "Error writing the output file(CopyFileData a)");
}

TEST(PageTransfer, FirstRecordingThatCannotBeOpenedIsToldByOutput) {
    MessageBoxes boxes;
    const FailingCall failing("CreateMetaFileA", CreateMetaFileA, nullptr, 1, EVERY_CALL);
    ReportRun to_file{PageForm{}};
    EXPECT_EQ(to_file.Start(), CODE_FILE);
    EXPECT_EQ(boxes.Log().back(), Fatal("Error creating metafile(a)"));
    ReportRun to_screen{PageForm{}};
    to_screen.params.Device = 'S';
    EXPECT_EQ(to_screen.Start(), CODE_FILE);
    EXPECT_EQ(boxes.Log().back(), Fatal("Error creating metafile"));
}

TEST(PageTransfer, PageTooLargeForMemoryIsStillReadFromDisk) {
    MessageBoxes boxes;
    ReportRun run{PageForm{}};
    ASSERT_EQ(run.Run({{{"NAME", "a"}}, {{"NAME", "b"}}}), 0) << boxes.LastText();
    RepViewParams block{};
    std::strcpy(block.ReportFileName, run.params.OutputFile);
    std::strcpy(block.TempDir, run.params.TempDir);
    block.Device = 'P';
    int32_t number = 2;
    const FailingCall failing("CopyMetaFileA", CopyMetaFileA, nullptr);
    const HMETAFILE page = RepView(&block, &number, nullptr, nullptr);
    EXPECT_NE(page, nullptr);
    EXPECT_EQ(failing.Seen(), 1);
    EXPECT_TRUE(boxes.Log().empty());
    DeleteMetaFile(page);
}

TEST(PageTransfer, FolderInPlaceOfTheReportStopsTheRunAtItsFirstPage) {
    MessageBoxes boxes;
    ReportRun run{PageForm{}};
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    ASSERT_TRUE(DeleteFileA(run.params.OutputFile));
    ASSERT_TRUE(CreateDirectoryA(run.params.OutputFile, nullptr));
    ASSERT_EQ(run.Feed({{"NAME", "first"}}), 0);
    EXPECT_EQ(run.Feed({{"NAME", "second"}}), CODE_FILE);
    EXPECT_EQ(boxes.Log().back(), Fatal("Error opening the output file(CopyFileData)"));
    EXPECT_EQ(run.Finish(), CODE_FILE);
}

// ---- names -------------------------------------------------------------------------------------

TEST_F(PageStore, ReportOfARunToDiskIsItsOwnFileAndThatOfAViewTheViewedOne) {
    std::strcpy(session->report.TimeText, "14:05:33");
    std::strcpy(session->RunBlock.TempDir, (folder.Root() + "\\").c_str());
    std::strcpy(session->ViewBlock.TempDir, folder.Root().c_str());
    std::strcpy(session->pages.OutputPath, "C:\\OUT.FRC");
    std::strcpy(session->ViewBlock.ReportFileName, "C:\\SEEN.FRC");
    session->OutputToFile = 1;
    MakePageFileNames(session);
    EXPECT_STREQ(session->pages.ReportPath, "C:\\OUT.FRC");
    EXPECT_EQ(std::string(session->pages.TransferPath), folder.Path("14R05R33.MFT"));
    EXPECT_EQ(std::string(session->pages.ScreenPagePath), folder.Path("14R05R33.MFS"));
    EXPECT_EQ(std::string(session->pages.PrintPagePath), folder.Path("14R05R33.MFP"));
    DeleteFileA(session->pages.TransferPath);
    session->OutputToFile = 0;
    session->ViewingFile = 1;
    MakePageFileNames(session);
    EXPECT_STREQ(session->pages.ReportPath, "C:\\SEEN.FRC");
    session->OutputToScreen = 1; // the viewed file stays when the session ends
}

TEST_F(PageStore, EmptyFolderBecomesTheCurrentOneInItsShortForm) {
    char before[MAX_PATH];
    char expected[MAX_PATH];
    GetCurrentDirectoryA(sizeof before, before);
    ASSERT_TRUE(SetCurrentDirectoryA(folder.Root().c_str()));
    GetShortPathNameA(folder.Root().c_str(), expected, sizeof expected);
    session->OutputToScreen = 1;
    std::strcpy(session->report.TimeText, "01:02:03");
    MakePageFileNames(session);
    SetCurrentDirectoryA(before);
    EXPECT_STREQ(session->RunBlock.TempDir, expected);
    EXPECT_EQ(std::string(session->pages.ReportPath), std::string(expected) + "\\01R02R03.MF");
}

TEST(PageFiles, NothingOfTheScratchIsLeftBehindARun) {
    MessageBoxes boxes;
    TemporaryFolder folder;
    ReportRun run{PageForm{}};
    std::strcpy(run.params.TempDir, folder.Root().c_str());
    ASSERT_EQ(run.Run({{{"NAME", "a"}}, {{"NAME", "b"}}, {{"NAME", "c"}}}), 0) << boxes.LastText();
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(folder.Path("*.MF*").c_str(), &found);
    EXPECT_EQ(search, INVALID_HANDLE_VALUE) << found.cFileName;
}
