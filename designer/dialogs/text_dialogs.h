// Dialogs that ask for a text.
#pragma once

#include "state/session.h"

namespace tessarine {

INT_PTR CALLBACK NewLabelParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK FieldNameParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK CreateDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK ModifyDlgParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
