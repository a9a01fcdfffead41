// Jobs on a printer, and the progress of runs to a printer or a disk file.
#pragma once

#include "state/session.h"

namespace tessarine {

// A run to a printer or to disk.
void StartPrinterRun(Session *session);  // dialog, document, first page; fatal with code 10
void StartFileRun(Session *session);     // the dialog of a run to disk
void EndPrinterPage(Session *session);   // EndPage and the abort procedure
void StartPrinterPage(Session *session); // StartPage and the unit mapping; may unwind with 5
void FilePrintPump(Session *session);
// The closing steps: dialog, document and, of a run that got whole, the report of the count.
void FinishOutput(Session *session, bool whole);

// Starts a document of the report's name; false when the device refuses.
bool StartDocument(const Session *session, HDC device);

BOOL CALLBACK PrintProc(HDC device, int code);
BOOL CALLBACK ScrPrintProc(HDC device, int code);

} // namespace tessarine
