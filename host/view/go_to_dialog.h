// Asks for a page number.
#pragma once

#include <windows.h>

// From 1 to count, what was typed forced into that; 0 when the user cancelled.
int AskForPage(HWND owner, int current, int count);
