// The state of a report run: where it is, what it has printed, and the page's geometry.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct RunState {

    HGLOBAL InputMemory;
    HGLOBAL BreakMemory;
    FieldRecord *InputTable; // FieldCount + 1 rows: the record that the host hands in
    FieldRecord *BreakTable; // BreakCount + 1 rows

    int32_t PageNumber; // the number printed on the page

    // Form units on the page.
    int32_t CurrentY;
    int32_t CurrentX;
    int32_t RowBottom; // the lowest edge of anything in the current row
    int32_t LeftOrigin;
    int32_t RightOrigin;
    int32_t TopOrigin;
    int32_t BottomOrigin;
    int32_t BodyBottom;
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

    int32_t PromptRows[MAX_USER_FIELDS]; // rows to ask, in order
    int32_t PromptTotal;
};

} // namespace tessarine
