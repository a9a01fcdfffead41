// How far a report is, what its pages measure, and when it was made.
#pragma once

#include <cstdint>

namespace tessarine {

enum { PHASE_SETUP = 0, PHASE_RECORDS = 1, PHASE_CLOSING = 2, PHASE_FINISHED = 3, PHASE_FILL = 4 };
enum { CANCEL_NONE = 1, CANCEL_STOP = 2 };

struct ReportState {
    int32_t RunPhase;
    int32_t CancelState;
    int32_t RecordCount; // records printed so far
    int32_t PageCount;   // number of the page under construction, from 1
    int32_t PageWidthUnits;
    int32_t PageBottomUnits;
    uint32_t DocumentOpen; // a run to the printer has started its document
    int32_t RunDate;       // YYYYMMDD
    char TimeText[9];      // "%02d:%02d:%02d"
};

} // namespace tessarine
