// A sheet of paper with its page, on the viewer's desk.
#pragma once

#include <windows.h>

// Paints the client area whole, through a bitmap so that nothing flickers. Without a page the
// sheet says that it can't be read.
void PaintSheet(HDC device, const RECT &client, const RECT &sheet, HMETAFILE page,
                double pixels_per_inch);
