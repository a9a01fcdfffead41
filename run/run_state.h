// The state of a report run: where it is, what it has printed, and the page's geometry.
#pragma once

#include "frame/windows.h"
#include "tessarine_records.h"

namespace tessarine {

enum { PHASE_SETUP = 0, PHASE_RECORDS = 1, PHASE_CLOSING = 2, PHASE_FINISHED = 3, PHASE_FILL = 4 };
enum { CANCEL_NONE = 1, CANCEL_STOP = 2 };

struct RunState {
    uint32_t OutputToScreen;
    uint32_t OutputToPrinter;
    uint32_t OutputToFile;
    uint32_t ViewingFile; // set by RepView beside one of the first two

    HGLOBAL InputMemory;
    HGLOBAL BreakMemory;
    FieldRecord *InputTable; // FieldCount + 1 rows: the record that the host hands in
    FieldRecord *BreakTable; // BreakCount + 1 rows

    int32_t RunPhase;
    int32_t CancelState;
    int32_t RecordCount; // records printed so far
    int32_t PageCount;   // number of the page under construction, from 1
    int32_t PageNumber;  // the number printed on the page

    // Form units on the page.
    int32_t CurrentY;
    int32_t CurrentX;
    int32_t RowBottom; // the lowest edge of anything in the current row
    int32_t LeftOrigin;
    int32_t RightOrigin;
    int32_t TopOrigin;
    int32_t BottomOrigin;
    int32_t PageWidthUnits;
    int32_t BodyBottom;
    int32_t PageBottomUnits;
    int32_t FeedOffset;

    int32_t AcrossIndex; // column of the current row across
    int32_t PageFresh;   // nothing has been printed on this page
    int32_t InPageBreak;
    int32_t TrialMode;
    int32_t ResetPageNumber;
    int32_t FirstOnPage;
    int32_t FirstInGroup;
    int32_t LastSection;
    int32_t WrapItem;

    int32_t RunDate;  // YYYYMMDD
    char TimeText[9]; // "%02d:%02d:%02d"

    int32_t PromptRows[MAX_USER_FIELDS]; // rows to ask, in order
    int32_t PromptTotal;

    uint32_t DocumentOpen; // a run to the printer has started its document
};

} // namespace tessarine
