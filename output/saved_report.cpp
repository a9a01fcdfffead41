#include "output/saved_report.h"

#include <algorithm>

#include "canvas/canvas.h"
#include "device/device_names.h"
#include "device/paper.h"
#include "device/printer.h"
#include "form/file_dialog.h"
#include "form/modified.h"
#include "frame/boundary.h"
#include "frame/files.h"
#include "frame/host_data.h"
#include "frame/mapping.h"
#include "frame/owned.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/clock.h"
#include "output/device_choice.h"
#include "output/page_files.h"
#include "output/page_store.h"
#include "output/preview_scroll.h"
#include "output/preview_window.h"
#include "output/report_file.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

void TakeBlock(Session *session, const RepViewParams *block) {
    session->LabelMode = LabelModeWanted();
    session->SessionKind = KIND_REPORT;
    session->WindowProcedure = RepWndProc;
    session->EndSession = EndPageSession;
    session->report.RunPhase = PHASE_SETUP;
    session->ViewBlock = *block;
    EndText(session->ViewBlock.ReportFileName);
    EndText(session->ViewBlock.TempDir);
    session->ParentWindow = block->ParentWindow;
}

bool NameReport(Session *session) {
    RepViewParams &block = session->ViewBlock;
    if (*block.ReportFileName) return true;
    return AskFileName(session, block.ReportFileName, ReportFileFilter(),
                       "Select Report File to View", false) &&
           *block.ReportFileName;
}

// A run to disk without records leaves no file, which is the usual cause.
void CheckReadable(Session *session) {
    const OwnedFile file(
        OpenShared(session->ViewBlock.ReportFileName, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING));
    if (file) return;
    FatalError(session,
               session->LabelMode ? "No Records Selected For Label!"
                                  : "No Records Selected For Report!",
               CODE_WARNING);
}

bool ChooseDevice(Session *session) {
    session->ViewingFile = 1;
    char &device = session->ViewBlock.Device;
    if (device == 'A') {
        const int answer = AskDevice(session);
        if (answer < 0) return false;
        device = answer == 0 ? 'S' : 'P';
    }
    if (device == 'S') {
        session->OutputToScreen = 1;
        session->view.HorzScroll = session->view.VertScroll = 1;
    } else {
        session->OutputToPrinter = 1;
    }
    return true;
}

bool OpenWindow(Session *session, HGLOBAL devNames, HGLOBAL devMode) {
    const RepViewParams &block = session->ViewBlock;
    if (CreateFormWindow(session, block.WindowStyle, block.WindowX, block.WindowY,
                         block.WindowWidth, block.WindowHeight))
        return false;
    if (session->OutputToScreen) {
        session->form.Header.RulerFlags = 0;
        ResizeCanvas(session);
    }
    if (devNames && devMode) {
        SetDevNames(session, devNames);
        SetDevMode(session, devMode, 0);
        ProcessPrinterData(session);
    }
    return true;
}

void TakeReportHeader(Session *session) {
    const ReportFileHeader &header = session->pages.Header;
    session->report.RecordCount = header.RecordCount;
    session->printer.UsableWidth = header.PageWidth;
    session->printer.UsableHeight = header.PageHeight;
    session->printer.PaperWidth = header.PaperWidth;
    session->printer.PaperHeight = header.PaperHeight;
    session->report.PageBottomUnits = InchesToUnits(header.PageBottom);
    session->report.PageWidthUnits = InchesToUnits(header.PageWidth);
}

void TakePrintOffset(Session *session) {
    const OwnedContext device(CreatePrinterContext(session));
    if (device)
        ReadPrintOffset(device.Get(), &session->printer.PrintOffsetX,
                        &session->printer.PrintOffsetY);
}

HMETAFILE FetchPage(Session *session, int wanted) {
    const int index = std::max(wanted, 0) - 1; // no page has a number below 1
    session->pages.ShownPageIndex = index;
    session->pages.ShownPage = nullptr;
    session->report.CancelState = CANCEL_NONE;
    session->report.RunPhase = PHASE_FINISHED;
    TakeReportHeader(session);
    TakePrintOffset(session);
    MakePageFileNames(session);
    if (session->OutputToScreen) PlaceScrollBars(session);
    return ReadMetaFilePage(session, index, session->pages.ScreenPagePath, nullptr);
}

HMETAFILE ViewPage(Session *session, RepViewParams *block, int32_t *pageNumber, HGLOBAL devNames,
                   HGLOBAL devMode) {
    TakeBlock(session, block);
    if (!NameReport(session)) return nullptr;
    CheckReadable(session);
    if (!ReadReportHeader(session, session->ViewBlock.ReportFileName)) return nullptr;
    if (!ChooseDevice(session) || !OpenWindow(session, devNames, devMode)) return nullptr;
    session->ViewBlock.SessionId = static_cast<uint32_t>(session->SessionId);
    *block = session->ViewBlock;
    AllocPageStore(session);
    if (!ReadPageTable(session, session->ViewBlock.ReportFileName)) return nullptr;
    ReadLocalClock(session);
    const HMETAFILE page = FetchPage(session, *pageNumber);
    *pageNumber = session->report.PageCount;
    return page;
}

} // namespace

// A viewing has no call by which a host could release it, so it is released here whatever came.
HMETAFILE RepView(RepViewParams *block, int32_t *pageNumber, HGLOBAL devNames, HGLOBAL devMode) {
    Session *session = nullptr;
    if (OpenRunSession(&session)) return nullptr;
    return AtEntry(
        session,
        [&] {
            const HMETAFILE page = ViewPage(session, block, pageNumber, devNames, devMode);
            WantEnd(session);
            return page;
        },
        [&] {
            WantEnd(session);
            return HMETAFILE{};
        });
}

void EndPageSession(Session *session) {
    if (session->pages.PageTableMemory || session->pages.CopyBuffer) ReleasePageStore(session);
    SetModified(session, 0); // a run must not ask to save
    CloseSession(session);
    FreeSession(session);
}

} // namespace tessarine
