// The modeless dialogs that show how far a job is and let the user stop it.
#pragma once

#include "frame/session.h"

namespace tessarine {

// Creates, fills and shows the dialog as the session's AbortDialog.
void OpenProgress(Session *session, const char *templateName, DLGPROC procedure, HWND owner,
                  const char *device);
void CloseProgress(Session *session);

// The number that a control shows, 0 when it shows none.
int ShownNumber(const Session *session, int control);
void ShowNumber(const Session *session, int control, int number);

// Gives waiting messages their turn until the run is cancelled. A code other than 0, an error of
// the spooler, cancels after the first message.
void PumpProgress(Session *session, int code);

INT_PTR CALLBACK PrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ScrPrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK FilePrintAbortParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
