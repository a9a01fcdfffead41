// A run to the printer, and the same run to a file: what a reader of the printed page finds must
// be what the file draws. The comparison is tests/tools/printed_pages.sh's.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/print_jobs.h"
#include "tests/support/report_run.h"

namespace {

struct SampleForm : FormBuilder {
    SampleForm(const std::string &title, int orientation) {
        std::snprintf(header.ReportName, sizeof header.ReportName, "%s", title.c_str());
        header.PrinterMode.PaperSize = DMPAPER_LETTER;
        header.PrinterMode.Orientation = static_cast<int16_t>(orientation);
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_PAGE_HEADER, 100);
        Label(SECTION_PAGE_HEADER, 400, 0, 600, 50, "Heading");
        Section(SECTION_DETAIL_1, 300);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
        Label(SECTION_DETAIL_1, 900, 120, 600, 50, "beside");
    }
};

int RunTo(char device, const FormBuilder &form, std::string *report) {
    ReportRun run(form);
    run.params.Device = device;
    if (const int code = run.Start()) return code;
    for (int record = 0; record < 12; ++record)
        if (const int code = run.Feed({{"NAME", "record" + std::to_string(record)}})) return code;
    const int code = run.Finish();
    if (device == 'F') *report = run.Report();
    return code;
}

// One line a text: page, x, y in form units from the printable corner.
void WriteTexts(const std::string &report, const std::filesystem::path &path) {
    std::ofstream out(path);
    const auto pages = PagesOf(report);
    for (size_t page = 0; page < pages.size(); ++page) {
        bool sound = true;
        for (const PageText &text : TextsOf(pages[page], &sound))
            out << page + 1 << ' ' << text.x << ' ' << text.y << ' ' << text.text << '\n';
        EXPECT_TRUE(sound);
    }
}

class PrintedCopy : public testing::TestWithParam<int> {};

} // namespace

TEST_P(PrintedCopy, IsMadeOfTheSameRunAsAFile) {
    MessageBoxes boxes;
    const bool landscape = GetParam() == DMORIENT_LANDSCAPE;
    const std::string title =
        (landscape ? "landscape" : "portrait") + std::to_string(GetTickCount());
    const SampleForm form(title, GetParam());
    std::string report;
    ASSERT_EQ(RunTo('F', form, &report), 0) << boxes.LastText();
    ASSERT_EQ(RunTo('P', form, nullptr), 0) << boxes.LastText();
    EXPECT_TRUE(boxes.Log().empty());
    const auto printed = AwaitPrintedJob(title);
    ASSERT_FALSE(printed.empty());
    EXPECT_GT(std::filesystem::file_size(printed), 500u);
    EXPECT_GT(PagesOf(report).size(), 1u);
    if (const char *folder = std::getenv("TESSARINE_COPY_DIR")) {
        const std::string base =
            std::string("Z:") + folder + "/" + (landscape ? "landscape" : "portrait");
        std::filesystem::copy_file(printed, base + ".pdf");
        WriteTexts(report, base + ".txt");
    }
}

INSTANTIATE_TEST_SUITE_P(Orientations, PrintedCopy,
                         testing::Values(DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE));
