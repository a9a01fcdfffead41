// Dialogs that offer one list. Each procedure bears the name of its template.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK NewSecParam(HWND dialog, UINT message, WPARAM wParam,
                             LPARAM lParam); // extra: a null-terminated array of names
INT_PTR CALLBACK SysParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK DlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK SumParam(HWND dialog, UINT message, WPARAM wParam,
                          LPARAM lParam); // extra: the row at the start
INT_PTR CALLBACK OpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK FuctParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
