// Views of a saved report on the printer that the host hands in.
#include <cstring>
#include <memory>

#include "device/device_names.h"
#include "frame/memory.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_view.h"
#include "tests/support/system_objects.h"

namespace {

// The two blocks of a host's printer: the session's own with another orientation and more copies.
struct HostPrinter {
    explicit HostPrinter(Session *session)
        : names(tessarine::GetDevNames(session)), mode(tessarine::GetDevMode(session)) {
        auto *settings = static_cast<DEVMODEA *>(GlobalLock(mode));
        orientation = settings->dmOrientation;
        copies = settings->dmCopies;
        settings->dmOrientation = static_cast<short>(orientation == 1 ? 2 : 1);
        settings->dmCopies = static_cast<short>(copies + 2);
        GlobalUnlock(mode);
    }
    ~HostPrinter() {
        GlobalFree(names);
        GlobalFree(mode);
    }
    HostPrinter(const HostPrinter &) = delete;
    HostPrinter &operator=(const HostPrinter &) = delete;

    HGLOBAL names;
    HGLOBAL mode;
    int orientation;
    int copies;
};

class ViewOnHostsPrinter : public ReportView {
protected:
    ViewOnHostsPrinter() {
        const ViewingSession viewing(
            block, [&](Session *session) { printer = std::make_unique<HostPrinter>(session); });
        EXPECT_TRUE(Show(1)) << boxes.LastText();
    }
    std::unique_ptr<HostPrinter> printer;
};

} // namespace

TEST_F(ViewOnHostsPrinter, IsTakenWhenBothHandlesComeAndTheSessionsPaperStays) {
    const HGLOBAL names = printer->names;
    const HGLOBAL mode = printer->mode;
    const std::pair<HGLOBAL, HGLOBAL> ways[] = {
        {names, mode}, {names, nullptr}, {nullptr, mode}, {nullptr, nullptr}};
    for (const char device : {'S', 'P'})
        for (const auto &[given_names, given_mode] : ways) {
            const bool both = given_names && given_mode;
            block.Device = device;
            int looks = 0;
            const ViewingSession viewing(block, [&](const Session *session) {
                ++looks;
                EXPECT_EQ(session->printer.DevMode->dmCopies, printer->copies + (both ? 2 : 0));
                EXPECT_EQ(session->printer.DevMode->dmOrientation, printer->orientation);
                EXPECT_EQ(session->printer.InfoDevice != nullptr, both);
            });
            ASSERT_TRUE(Show(2, given_names, given_mode)) << boxes.LastText();
            EXPECT_EQ(looks, 1);
            EXPECT_EQ(number, 3);
            EXPECT_EQ(BytesOfMetafile(page), PagesOf(run.Report())[1]);
        }
}

TEST_F(ViewOnHostsPrinter, PaperOfTheReportCountsAndNotThePrinters) {
    std::string report = run.Report();
    ReportFileHeader header = HeaderOf(report);
    header.PaperWidth = 5.5F;
    header.PaperHeight = 7.25F;
    header.PageWidth = 5.125F;
    header.PageBottom = 6.503F;
    std::memcpy(report.data(), &header, sizeof header);
    WriteWholeFile(run.params.OutputFile, report);
    int looks = 0;
    const ViewingSession viewing(block, [&](const Session *session) {
        ++looks;
        EXPECT_EQ(session->printer.PaperWidth, 5.5F);
        EXPECT_EQ(session->printer.PaperHeight, 7.25F);
        EXPECT_EQ(session->report.PageWidthUnits, 1281);  // of 1281.25
        EXPECT_EQ(session->report.PageBottomUnits, 1625); // of 1625.75
    });
    ASSERT_TRUE(Show(2, printer->names, printer->mode)) << boxes.LastText();
    EXPECT_EQ(looks, 1);
}

TEST_F(ViewOnHostsPrinter, ThatIsNotThereGivesNoPage) {
    const HGLOBAL names = GlobalAlloc(GHND, sizeof(DEVNAMES) + 40);
    auto *block_of_names = static_cast<DEVNAMES *>(GlobalLock(names));
    block_of_names->wDriverOffset = 8;
    block_of_names->wDeviceOffset = 20;
    block_of_names->wOutputOffset = 30;
    std::strcpy(reinterpret_cast<char *>(block_of_names) + 8, "none");
    std::strcpy(reinterpret_cast<char *>(block_of_names) + 20, "none");
    GlobalUnlock(names);
    EXPECT_FALSE(Show(2, names, printer->mode));
    GlobalFree(names);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"Fatal Error", "Printer Driver Error!", {IDOK}}}));
    EXPECT_EQ(number, 2);
    EXPECT_TRUE(Show(2, nullptr, nullptr)); // and its row is free again
}

TEST_F(ViewOnHostsPrinter, NothingIsLeftOfManyViews) {
    for (const char device : {'S', 'P'}) { // the system keeps objects of the first window
        block.Device = device;
        ASSERT_TRUE(Show(2, printer->names, printer->mode)) << boxes.LastText();
    }
    const int objects = CountGdiObjects();
    const int user_objects = CountUserObjects();
    const int blocks = tessarine::LiveBlocks();
    for (int view = 0; view < 20; ++view) {
        block.Device = view % 2 ? 'S' : 'P';
        ASSERT_TRUE(Show(2, printer->names, printer->mode)) << boxes.LastText();
    }
    EXPECT_LE(CountGdiObjects(), objects);
    EXPECT_LE(CountUserObjects(), user_objects);
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
}
