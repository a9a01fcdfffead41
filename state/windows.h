// The system's headers, without the macros that would rename routines of our own.
#pragma once

#include <windows.h>

#include <commdlg.h>
#include <winspool.h>

#undef FindText
#undef GetDefaultPrinter
