// Where a session keeps its finished pages, and what its preview shows of them.
#pragma once

#include "frame/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct PageStoreState {
    HGLOBAL PageTableMemory;
    uint32_t *PageTable; // 5001 file offsets: page index i lies from [i] to [i + 1]
    HDC PageRecorder;    // the open recording that composition draws on
    HMETAFILE ShownPage; // the one page held for painting
    int32_t ShownPageIndex;
    char *CopyBuffer; // 16384 bytes
    char ReportPath[260];
    char TransferPath[260];   // .MFT, a page on its way in
    char ScreenPagePath[260]; // .MFS, a page on its way to the screen
    char PrintPagePath[260];  // .MFP, a page on its way to the printer
    char OutputPath[276];     // the report file of a run to disk
    ReportFileHeader Header;  // of a saved report
};

struct ViewState {
    int32_t OriginX; // form units: top left of what is shown
    int32_t OriginY;
    int32_t ViewWidth; // form units: the page area of the window
    int32_t ViewHeight;
    uint32_t FitPage;
    int32_t ScrollPosX; // 0 to 100
    int32_t ScrollPosY;
    uint32_t HorzScroll; // the window has that scroll bar
    uint32_t VertScroll;
    uint32_t PaintEnabled;   // the session has a window of its own to paint
    int32_t RulerBandHeight; // form units: the band above the page area, 0 in a report's window
    RECT ClipRect;           // pixels
    int32_t MessagesInHand;  // how many messages of the window are being handled, one in another
    uint32_t CloseWanted;    // the session ends when the last of them is done
};

// A print job of the preview. It counts pages and scales in the session's own fields; while these
// are the job's, here is what the run and its window have, and the other way round.
struct PreviewJobState {
    uint32_t InHand;
    uint32_t InForce; // the session's fields are the job's
    int32_t PageCount;
    int32_t LogPixelsX;
    int32_t LogPixelsY;
};

} // namespace tessarine
