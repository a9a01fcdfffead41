// The modeless dialogs that show how far a job is and let the user stop it.
#pragma once

#include "state/session.h"

namespace tessarine {

// Creates, fills and shows the dialog, of the session's run or of its job.
void OpenProgress(Session *session, ProgressState *progress, const char *templateName,
                  DLGPROC procedure, HWND owner, const char *device);
void CloseProgress(ProgressState *progress);

// The number that a control shows, 0 when it shows none.
int ShownNumber(const ProgressState &progress, int control);
void ShowNumber(const ProgressState &progress, int control, int number);

// Gives waiting messages their turn until the cancel word says stop. A code other than 0, an error
// of the spooler, cancels after the first message.
void PumpProgress(HWND dialog, int32_t *cancelState, int code);

INT_PTR CALLBACK PrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ScrPrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK FilePrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
