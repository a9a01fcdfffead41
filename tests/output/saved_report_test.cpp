#include "output/saved_report.h"

#include <gtest/gtest.h>

#include <cstring>

#include "device/printer.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "rep_dlg.h"
#include "tests/support/gdi_objects.h"
#include "tests/support/host_window.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/preview_run.h"

namespace {

std::vector<Record> Records(int count) {
    std::vector<Record> records;
    for (int record = 0; record < count; ++record)
        records.push_back({{"NAME", "record " + std::to_string(record)}});
    return records;
}

// A report of three pages, and views of it.
class ReportView : public testing::Test {
protected:
    ReportView() : run(FiveAPage{}) {
        EXPECT_EQ(run.Run(Records(12)), 0) << boxes.LastText();
        std::strcpy(block.ReportFileName, run.params.OutputFile);
        std::strcpy(block.TempDir, run.params.TempDir);
        block.Device = 'P';
        block.ParentWindow = host.Get();
    }
    ~ReportView() override { DeleteMetaFile(page); }

    bool Show(int wanted) {
        number = wanted;
        DeleteMetaFile(page);
        page = tessarine::RepView(&block, &number, nullptr, nullptr);
        return page != nullptr;
    }
    void AnswerDevice(int row, int button) {
        boxes.OnDialog("Output Device", [=, this](HWND dialog) {
            offered = static_cast<int>(SendDlgItemMessageA(dialog, LIST_CHOICE, LB_GETCOUNT, 0, 0));
            SendDlgItemMessageA(dialog, LIST_CHOICE, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
            PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        });
    }

    MessageBoxes boxes;
    HostWindow host;
    ReportRun run;
    RepViewParams block{};
    int32_t number = 0;
    int offered = 0;
    HMETAFILE page = nullptr;
};

} // namespace

TEST_F(ReportView, Page1ComesBackWithThePageCount) {
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_EQ(number, 3);
    EXPECT_EQ(BytesOfMetafile(page), PagesOf(run.Report())[0]);
}

TEST_F(ReportView, LastPageIsThatOfTheFile) {
    ASSERT_TRUE(Show(3)) << boxes.LastText();
    EXPECT_EQ(BytesOfMetafile(page), PagesOf(run.Report())[2]);
}

TEST_F(ReportView, SessionIsGoneWhenThePageComesBackAndTheHostHasHeard) {
    ASSERT_TRUE(Show(2));
    EXPECT_EQ(+block.ReportWindow, nullptr);
    EXPECT_EQ(tessarine::GetSessionPointer(nullptr, static_cast<int>(block.SessionId)), nullptr);
    EXPECT_EQ(host.Count(1024), 1);
}

TEST_F(ReportView, ScreenHasAWindowForThatMoment) {
    block.Device = 'S';
    block.WindowStyle = WS_OVERLAPPEDWINDOW;
    block.WindowWidth = block.WindowHeight = 300;
    ASSERT_TRUE(Show(2)) << boxes.LastText();
    EXPECT_NE(+block.ReportWindow, nullptr);
    EXPECT_FALSE(IsWindow(block.ReportWindow));
    EXPECT_EQ(number, 3);
}

TEST_F(ReportView, AskedDeviceIsScreenOrPrinterAndGoesIntoTheBlock) {
    block.Device = 'A';
    AnswerDevice(0, IDOK);
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_EQ(offered, 2); // no disk file
    EXPECT_EQ(block.Device, 'S');
    block.Device = 'A';
    AnswerDevice(1, IDOK);
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_EQ(block.Device, 'P');
}

TEST_F(ReportView, CancelledDeviceGivesNoPage) {
    block.Device = 'A';
    AnswerDevice(0, IDCANCEL);
    EXPECT_FALSE(Show(1));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(block.Device, 'A');
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(ReportView, AnyOtherLetterCountsAsPrinter) {
    block.Device = 'X';
    EXPECT_TRUE(Show(1));
    EXPECT_EQ(+block.ReportWindow, nullptr);
}

TEST_F(ReportView, EmptyNameIsAskedForAndComesBack) {
    block.ReportFileName[0] = 0;
    const std::string path = run.params.OutputFile;
    boxes.OnDialog("Select Report File to View", [&](HWND dialog) {
        HWND edit = GetDlgItem(dialog, 0x480);
        if (!edit) edit = GetDlgItem(dialog, 0x47C);
        SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_EQ(+block.ReportFileName, path);
}

TEST_F(ReportView, CancelledNameGivesNoPage) {
    block.ReportFileName[0] = 0;
    boxes.OnDialog("Select Report File to View",
                   [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_FALSE(Show(1));
    EXPECT_EQ(number, 1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(ReportView, MissingFileIsAWarningInTheWordsOfReportsOrLabels) {
    DeleteFileA(run.params.OutputFile);
    uint32_t label = 0;
    HostData data{};
    data.LabelForm = &label;
    tessarine::SetCRepData(&data);
    EXPECT_FALSE(Show(1));
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Warning", "No Records Selected For Report!", {IDOK}}));
    label = 1;
    EXPECT_FALSE(Show(1));
    EXPECT_EQ(boxes.Log().back(), (BoxRecord{"Warning", "No Records Selected For Label!", {IDOK}}));
    tessarine::RemoveCRepData(&data);
}

TEST_F(ReportView, FileThatMayNotBeWrittenIsAWarningToo) {
    const HANDLE lock = CreateFileA(run.params.OutputFile, GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_FALSE(Show(1));
    CloseHandle(lock);
    EXPECT_EQ(boxes.LastText(), "No Records Selected For Report!");
}

TEST_F(ReportView, EmptyFolderIsFilledInOnTheSessionsSideAlone) {
    block.TempDir[0] = 0;
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_STREQ(block.TempDir, ""); // the block went back before
}

TEST_F(ReportView, NothingIsLeftOfManyViews) {
    for (const char device : {'S', 'P'}) { // the system keeps objects of the first window
        block.Device = device;
        ASSERT_TRUE(Show(1)) << boxes.LastText();
    }
    const int objects = CountGdiObjects();
    for (int view = 0; view < 30; ++view) {
        block.Device = view % 2 ? 'S' : 'P';
        ASSERT_TRUE(Show(view % 3 + 1)) << boxes.LastText();
    }
    EXPECT_LE(CountGdiObjects(), objects);
    WIN32_FIND_DATAA found{};
    const std::string pattern = std::string(block.TempDir) + "\\*.MF*";
    EXPECT_EQ(FindFirstFileA(pattern.c_str(), &found), INVALID_HANDLE_VALUE) << found.cFileName;
}
