#include "output/saved_report.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <set>

#include "commands.h"
#include "device/printer.h"
#include "form/form_tables.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "output/preview_paint.h"
#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_view.h"
#include "tests/support/system_objects.h"
#include "tests/support/window_driver.h"

namespace {

class AskedView : public ReportView {
protected:
    void AnswerDevice(int row, int button) {
        boxes.OnDialog("Output Device", [=, this](DialogDriver dialog) {
            offered = static_cast<int>(dialog.Rows(LIST_CHOICE).size());
            dialog.Select(LIST_CHOICE, row);
            dialog.Press(button);
        });
    }
    int offered = 0;
};

// The printing offset of the session's printer in form units.
POINT OffsetOf(const Session *session) {
    const HDC device = tessarine::CreatePrinterContext(session);
    POINT offset{};
    Escape(device, GETPRINTINGOFFSET, 0, nullptr, &offset);
    offset.x = MulDiv(offset.x, 250, GetDeviceCaps(device, LOGPIXELSX));
    offset.y = MulDiv(offset.y, 250, GetDeviceCaps(device, LOGPIXELSY));
    DeleteDC(device);
    return offset;
}

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
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
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

TEST_F(AskedView, AskedDeviceIsScreenOrPrinterAndGoesIntoTheBlock) {
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

TEST_F(AskedView, CancelledDeviceGivesNoPage) {
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
    boxes.AnswerDialog("Select Report File to View", FILE_NAME, path, IDOK);
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_EQ(+block.ReportFileName, path);
}

TEST_F(ReportView, CancelledNameGivesNoPage) {
    block.ReportFileName[0] = 0;
    boxes.AnswerDialog("Select Report File to View", IDCANCEL);
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
    const int user_objects = CountUserObjects();
    for (int view = 0; view < 30; ++view) {
        block.Device = view % 2 ? 'S' : 'P';
        ASSERT_TRUE(Show(view % 3 + 1)) << boxes.LastText();
    }
    EXPECT_LE(CountGdiObjects(), objects);
    EXPECT_LE(CountUserObjects(), user_objects);
    WIN32_FIND_DATAA found{};
    const std::string pattern = std::string(block.TempDir) + "\\*.MF*";
    EXPECT_EQ(FindFirstFileA(pattern.c_str(), &found), INVALID_HANDLE_VALUE) << found.cFileName;
}

// ---- the session that views --------------------------------------------------------------------

TEST_F(ReportView, SessionHasTheFiguresOfTheReportAndTheOffsetOfThePrinter) {
    const ReportFileHeader header = HeaderOf(run.Report());
    int looks = 0;
    const ViewingSession viewing(block, [&](const Session *session) {
        ++looks;
        EXPECT_EQ(session->SessionKind, tessarine::KIND_REPORT);
        EXPECT_EQ(session->report.RunPhase, tessarine::PHASE_FINISHED);
        EXPECT_EQ(session->report.CancelState, tessarine::CANCEL_NONE);
        EXPECT_EQ(session->report.PageCount, 3);
        EXPECT_EQ(session->report.RecordCount, 12);
        EXPECT_EQ(session->pages.ShownPageIndex, 1);
        EXPECT_EQ(session->pages.ShownPage, nullptr);
        EXPECT_EQ(session->printer.UsableWidth, +header.PageWidth);
        EXPECT_EQ(session->printer.UsableHeight, +header.PageHeight);
        EXPECT_EQ(session->printer.PaperWidth, +header.PaperWidth);
        EXPECT_EQ(session->printer.PaperHeight, +header.PaperHeight);
        EXPECT_EQ(session->report.PageBottomUnits, static_cast<int>(header.PageBottom * 250.0));
        EXPECT_EQ(session->report.PageWidthUnits, static_cast<int>(header.PageWidth * 250.0));
        const POINT offset = OffsetOf(session);
        EXPECT_GT(offset.x, 0);
        EXPECT_EQ(session->printer.PrintOffsetX, offset.x);
        EXPECT_EQ(session->printer.PrintOffsetY, offset.y);
    });
    ASSERT_TRUE(Show(2)) << boxes.LastText();
    EXPECT_EQ(looks, 1);
}

TEST_F(ReportView, OutputIsTheScreenOrElseThePrinterAndNeverAFile) {
    for (const char device : {'S', 'P', 'F', 's'}) {
        block.Device = device;
        const ViewingSession viewing(block, [&](const Session *session) {
            EXPECT_EQ(session->OutputToScreen, device == 'S' ? 1u : 0u) << device;
            EXPECT_EQ(session->OutputToPrinter, device == 'S' ? 0u : 1u) << device;
            EXPECT_EQ(session->OutputToFile, 0u) << device;
            EXPECT_EQ(session->ViewingFile, 1u) << device;
            EXPECT_EQ(session->view.HorzScroll, device == 'S' ? 1u : 0u) << device;
            EXPECT_EQ(session->view.VertScroll, device == 'S' ? 1u : 0u) << device;
        });
        ASSERT_TRUE(Show(1)) << boxes.LastText();
        EXPECT_EQ(block.Device, device);
    }
}

TEST_F(ReportView, WindowHasTheBlocksPlaceAndStyleAndNoNameAndItsBarsAtTheStart) {
    block.Device = 'S';
    block.WindowStyle = WS_OVERLAPPEDWINDOW;
    block.WindowX = 30;
    block.WindowY = 40;
    block.WindowWidth = 310;
    block.WindowHeight = 320;
    HWND window = nullptr;
    const ViewingSession viewing(block, [&](const Session *session) {
        window = session->Window;
        char text[40] = "";
        GetClassNameA(window, text, sizeof text);
        EXPECT_STREQ(text, "RepClass32");
        GetWindowTextA(window, text, sizeof text);
        EXPECT_STREQ(text, "(UNNAMED)");
        EXPECT_EQ(GetWindow(window, GW_OWNER), host.Get());
        RECT place{};
        GetWindowRect(window, &place);
        EXPECT_EQ(place.right - place.left, 310);
        EXPECT_EQ(place.bottom - place.top, 320);
        EXPECT_EQ(place.left, 30);
        EXPECT_EQ(place.top, 40);
        EXPECT_TRUE(GetWindowLongA(window, GWL_STYLE) & WS_THICKFRAME);
        for (const int bar : {SB_HORZ, SB_VERT}) {
            EXPECT_EQ(DrivenWindow(window).ScrollRange(bar), (std::pair{0, 100}));
            EXPECT_EQ(DrivenWindow(window).ScrollPosition(bar), 0);
        }
        RECT client{};
        GetClientRect(window, &client);
        EXPECT_EQ(+session->form.Header.RulerFlags, 0);
        EXPECT_EQ(session->view.ViewWidth,
                  MulDiv(client.right, 250, session->drawing.LogPixelsX) + 1);
    });
    ASSERT_TRUE(Show(1)) << boxes.LastText();
    EXPECT_NE(window, nullptr);
    EXPECT_EQ(+block.ReportWindow, window);
}

TEST_F(ReportView, BlockComesBackBeforeThePageIsReadAndTheCountBehindIt) {
    block.Device = 'S';
    block.ReportWindow = nullptr;
    block.SessionId = 0;
    int looks = 0;
    const ViewingSession viewing(block, [&](const Session *session) {
        ++looks;
        EXPECT_EQ(+block.ReportWindow, session->Window);
        EXPECT_EQ(+block.SessionId, static_cast<uint32_t>(session->SessionId));
        EXPECT_EQ(number, 2);
        EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
    });
    ASSERT_TRUE(Show(2)) << boxes.LastText();
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(number, 3);
}

TEST_F(ReportView, PrinterWithoutAContextLeavesTheOffsetAt0AndSaysNothing) {
    int looks = 0;
    const ViewingSession viewing(block, [&](const Session *session) {
        ++looks;
        EXPECT_EQ(session->printer.PrintOffsetX, 0);
        EXPECT_EQ(session->printer.PrintOffsetY, 0);
    });
    const FailingCall none("CreateDCA", CreateDCA, nullptr, 1, EVERY_CALL);
    EXPECT_TRUE(Show(1));
    EXPECT_EQ(looks, 1);
    EXPECT_GT(none.Seen(), 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(ReportView, ScratchFilesLieInTheBlocksFolderOrElseInTheCurrentOne) {
    char current[MAX_PATH] = "";
    char short_name[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof current, current);
    GetShortPathNameA(current, short_name, sizeof short_name);
    for (const std::string &folder : {std::string(run.params.TempDir), std::string()}) {
        std::strcpy(block.TempDir, folder.c_str());
        const ViewingSession viewing(block, [&](const Session *session) {
            const std::string wanted = folder.empty() ? short_name : folder;
            const std::string path = session->pages.ScreenPagePath;
            EXPECT_EQ(path.substr(0, path.rfind('\\')), wanted);
            EXPECT_EQ(path.substr(path.size() - 4), ".MFS");
            EXPECT_STREQ(session->pages.ReportPath, block.ReportFileName);
            EXPECT_STREQ(session->ViewBlock.TempDir, wanted.c_str());
        });
        ASSERT_TRUE(Show(1)) << boxes.LastText();
    }
}

TEST_F(ReportView, FiguresThatNoPaperHasHarmNothing) {
    std::string report = run.Report();
    const ReportFileHeader sound = HeaderOf(report);
    block.Device = 'S';
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float odd : {1e30F, -1e30F, 0.0F, infinity, std::nanf("")}) {
        ReportFileHeader header = sound;
        header.PageWidth = header.PageHeight = header.PageBottom = odd;
        header.PaperWidth = header.PaperHeight = odd;
        std::memcpy(report.data(), &header, sizeof header);
        WriteWholeFile(run.params.OutputFile, report);
        const ViewingSession viewing(block, [&](Session *session) {
            for (const uint32_t fitted : {0u, 1u}) {
                session->preview.FitPage = fitted;
                tessarine::PaintPreview(session);
            }
        });
        EXPECT_TRUE(Show(1)) << odd << ": " << boxes.LastText();
        EXPECT_EQ(number, 3);
    }
}

// ---- no session --------------------------------------------------------------------------------

TEST_F(ReportView, WithoutAFreeRowThereIsNoPageAndNothingIsAllocated) {
    std::vector<Session *> taken;
    Session *session = nullptr;
    while (!tessarine::OpenRunSession(&session)) taken.push_back(session);
    const int blocks = tessarine::LiveBlocks();
    EXPECT_FALSE(Show(1));
    EXPECT_EQ(tessarine::LiveBlocks(), blocks);
    EXPECT_TRUE(boxes.Log().empty());
    for (Session *row : taken) tessarine::FreeSession(row);
    EXPECT_TRUE(Show(1));
}

TEST_F(ReportView, EachAllocationThatFailsGivesNoPageAndIsReleased) {
    ASSERT_TRUE(Show(1));
    const int sessions = OpenSessions();
    const int blocks = tessarine::LiveBlocks();
    std::set<std::string> told;
    // The session, the operators' help lines, of which the first stands for all, and what follows.
    for (int failing = 1;; failing = failing == 2 ? tessarine::OPERATOR_ROWS : failing + 1) {
        boxes.Clear();
        tessarine::FailAllocation(failing);
        const bool shown = Show(1);
        tessarine::FailAllocation(0);
        EXPECT_EQ(OpenSessions(), sessions) << failing;
        EXPECT_EQ(tessarine::LiveBlocks(), blocks) << failing;
        if (shown && failing > tessarine::OPERATOR_ROWS) break;
        if (boxes.LastTitle() == "Fatal Error") told.insert(boxes.LastText());
    }
    EXPECT_EQ(told, (std::set<std::string>{"Ran Out of Memory (AllocArrayMem)",
                                           "Ran Out of Memory (InitPrinter)",
                                           "Ran Out of Memory (AllocRepMem)"}));
}
