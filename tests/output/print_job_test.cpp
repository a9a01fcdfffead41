#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "frame/session_table.h"
#include "tests/support/message_boxes.h"
#include "tests/support/report_run.h"

namespace {

struct ListForm : FormBuilder {
    explicit ListForm(const char *title) {
        std::snprintf(header.ReportName, sizeof header.ReportName, "%s", title);
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 500);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

// Waits until the printer has made a file whose name ends so; its size.
uintmax_t WaitForPdf(const std::string &ending) {
    const char *folder = std::getenv("TESSARINE_PRINT_DIR");
    if (!folder) return 0;
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < 60'000) {
        std::error_code ignored;
        for (const auto &file :
             std::filesystem::directory_iterator(std::string("Z:") + folder, ignored)) {
            const std::string name = file.path().filename().string();
            if (name.size() > ending.size() &&
                !name.compare(name.size() - ending.size(), ending.size(), ending))
                return file.file_size();
        }
        Sleep(50);
    }
    return 0;
}

} // namespace

TEST(PrintJob, RunToThePrinterMakesAJobOfItsReportsName) {
    const std::string title = "job" + std::to_string(GetTickCount());
    MessageBoxes boxes;
    ReportRun run{ListForm(title.c_str())};
    run.params.Device = 'P';
    ASSERT_EQ(run.Start(), 0) << boxes.LastText();
    for (int record = 0; record < 12; ++record)
        ASSERT_EQ(run.Feed({{"NAME", "record"}}), 0) << boxes.LastText();
    ASSERT_EQ(run.Finish(), 0) << boxes.LastText();
    EXPECT_EQ(run.page_count, 3);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_GT(WaitForPdf(title + ".pdf"), 500u);
}

TEST(PrintJob, RunWithoutRecordsStartsNoJob) {
    MessageBoxes boxes;
    ReportRun run{ListForm("none")};
    run.params.Device = 'P';
    run.params.Silent = 0;
    ASSERT_EQ(run.Run({}), 0) << boxes.LastText();
    EXPECT_EQ(boxes.LastText(), "0 Record(s) Printed");
}
