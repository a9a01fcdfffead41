// Where a session keeps its finished pages, and what its preview shows of them.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct PageStoreState {
    HGLOBAL PageTableMemory;
    uint32_t *PageTable; // 5001 file offsets: page index i lies from [i] to [i + 1]
    HDC PageRecorder;    // the open recording that composition draws on
    HMETAFILE ShownPage; // the one page held for painting
    int32_t ShownPageIndex;
    char *CopyBuffer; // 16384 bytes
    char ReportPath[276];
    char TransferPath[260];   // .MFT, a page on its way in
    char ScreenPagePath[260]; // .MFS, a page on its way to the screen
    char PrintPagePath[260];  // .MFP, a page on its way to the printer
    char OutputPath[276];     // the report file of a run to disk
    HANDLE NameClaim;         // null before the names are made
    uint32_t ReportWhole;     // the report file has its header and table
    ReportFileHeader Header;  // of a saved report
};

struct PreviewState {
    uint32_t FitPage; // the whole sheet in the window, not its actual size
};

// A modeless dialog that shows how far a job is and lets the user stop it, with the procedures in
// force.
struct ProgressState {
    HWND AbortDialog;
    DLGPROC AbortDialogProc;
    ABORTPROC AbortProc;
};

// A print job of the preview's finished pages. The run behind it goes on with its own page, scale
// and cancel word.
struct PreviewJobState {
    uint32_t InHand;   // from the question for its pages on
    uint32_t Printing; // from its document on
    ProgressState Progress;
    int32_t CancelState; // CANCEL_NONE or CANCEL_STOP
    int32_t PageCount;   // number of the page in hand, from 1
    int32_t FirstPrintPage;
    int32_t LastPrintPage;
};

} // namespace tessarine
