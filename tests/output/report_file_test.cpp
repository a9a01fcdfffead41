#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "frame/host_data.h"
#include "output/page_files.h"
#include "output/report_file.h"
#include "output/saved_report.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"

namespace {

// A list whose pages hold a fixed number of records.
struct ListForm : FormBuilder {
    ListForm() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 500);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

std::vector<Record> Records(int count) {
    std::vector<Record> records;
    for (int record = 0; record < count; ++record)
        records.push_back({{"NAME", "record " + std::to_string(record)}});
    return records;
}

struct View {
    explicit View(const std::string &path) {
        std::strcpy(block.ReportFileName, path.c_str());
        GetTempPathA(150, block.TempDir);
        block.Device = 'P';
    }
    ~View() {
        if (page) DeleteMetaFile(page);
    }
    bool Show(int wanted) {
        number = wanted;
        if (page) DeleteMetaFile(page);
        page = tessarine::RepView(&block, &number, nullptr, nullptr);
        return page != nullptr;
    }
    RepViewParams block{};
    int32_t number = 0;
    HMETAFILE page = nullptr;
};

} // namespace

TEST(ReportFile, OnePageHasATableOfTwoEntries) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run(Records(2)), 0) << boxes.LastText();
    const std::string report = run.Report();
    const ReportFileHeader header = HeaderOf(report);
    EXPECT_EQ(+header.Magic, 57019u);
    EXPECT_EQ(+header.PageCount, 1);
    uint32_t table[2];
    std::memcpy(table, report.data() + header.PageTableOffset, sizeof table);
    EXPECT_EQ(table[0], 490u);
    EXPECT_EQ(table[1], static_cast<uint32_t>(header.PageTableOffset));
    EXPECT_EQ(report.size(), static_cast<size_t>(header.PageTableOffset) + 8);
}

TEST(ReportFile, TableEndsTheFileAndEveryPageIsASoundMetafile) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run(Records(23)), 0) << boxes.LastText();
    const std::string report = run.Report();
    const ReportFileHeader header = HeaderOf(report);
    EXPECT_EQ(report.size(),
              static_cast<size_t>(header.PageTableOffset) + header.PageCount * 4u + 4u);
    const std::vector<std::string> pages = PagesOf(report);
    ASSERT_EQ(pages.size(), 5u); // five records of two inches a page
    for (const std::string &page : pages) {
        bool sound = false;
        TextsOf(page, &sound);
        EXPECT_TRUE(sound);
    }
    EXPECT_EQ(PageWords(report, 4),
              (std::vector<std::string>{"record 20", "record 21", "record 22"}));
}

TEST(ReportFile, RunWithoutRecordsLeavesNoFileAndAViewOfItSaysSo) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run({}), 0) << boxes.LastText();
    EXPECT_EQ(run.page_count, 0);
    EXPECT_EQ(GetFileAttributesA(run.params.OutputFile), INVALID_FILE_ATTRIBUTES);
    View view(run.params.OutputFile);
    EXPECT_FALSE(view.Show(1));
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Warning", "No Records Selected For Report!", {IDOK}}));
}

TEST(ReportFile, UnwritablePathIsToldAtOnceAndGives19) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    std::strcpy(run.params.OutputFile, "C:\\no such folder\\OUT.FRC");
    EXPECT_EQ(run.Start(), CODE_NO_OUTPUT_FILE);
    EXPECT_EQ(boxes.LastText(), "Error opening the output file(WriteEmptyHeader)");
    std::strcpy(run.params.OutputFile, "");
    EXPECT_EQ(run.Start(), CODE_NO_OUTPUT_FILE);
}

TEST(SavedReport, PageOneComesBackWithThePageCount) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run(Records(12)), 0) << boxes.LastText();
    View view(run.params.OutputFile);
    EXPECT_TRUE(view.Show(1)) << boxes.LastText();
    EXPECT_EQ(view.number, 3);
    EXPECT_TRUE(view.Show(3));
    EXPECT_TRUE(boxes.Log().empty());
}

TEST(SavedReport, PageThatTheReportDoesNotHaveCannotBeRead) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run(Records(12)), 0) << boxes.LastText();
    View view(run.params.OutputFile);
    for (const int wanted : {4, 0, -1, 5001, INT_MIN, INT_MAX}) {
        boxes.Clear();
        EXPECT_FALSE(view.Show(wanted)) << wanted;
        EXPECT_EQ(view.number, wanted);
        EXPECT_EQ(boxes.LastTitle(), "Fatal Error");
        EXPECT_EQ(boxes.LastText(), "Error getting the disk meta file(ReadMetaFilePage)");
    }
    EXPECT_TRUE(view.Show(3));
}

TEST(SavedReport, FileWithoutTheMarkIsInvalid) {
    MessageBoxes boxes;
    TemporaryFolder folder;
    const std::string path = folder.Path("BAD.FRC");
    WriteWholeFile(path, std::string(600, 'x'));
    View view(path);
    EXPECT_FALSE(view.Show(1));
    EXPECT_EQ(boxes.LastText(), "Invalid Report File!");
    WriteWholeFile(path, "short");
    EXPECT_FALSE(view.Show(1));
    EXPECT_EQ(boxes.LastText(), "Error reading the report header!");
}

TEST(SavedReport, DamagedCountsAndTablesAreRefused) {
    MessageBoxes boxes;
    ReportRun run{ListForm{}};
    ASSERT_EQ(run.Run(Records(12)), 0) << boxes.LastText();
    const std::string sound = run.Report();
    for (const int32_t count : {-1, 6000, 1000}) {
        std::string damaged = sound;
        std::memcpy(damaged.data() + offsetof(ReportFileHeader, PageCount), &count, 4);
        WriteWholeFile(run.params.OutputFile, damaged);
        View view(run.params.OutputFile);
        EXPECT_FALSE(view.Show(1)) << count;
    }
    std::string damaged = sound;
    const uint32_t far_off = 0x7FFFFFFF;
    std::memcpy(damaged.data() + HeaderOf(sound).PageTableOffset, &far_off, 4);
    WriteWholeFile(run.params.OutputFile, damaged);
    View view(run.params.OutputFile);
    EXPECT_FALSE(view.Show(1));
    EXPECT_EQ(boxes.LastText(), "Invalid Report File!");
}
