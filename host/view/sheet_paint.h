// A sheet of paper with its page, on the viewer's desk.
#pragma once

#include <string>

#include <windows.h>

struct SheetPage {
    HMETAFILE metafile;
    std::string failure; // what the sheet says when there is no metafile
    double pixels_per_inch;
};

// Paints the client area whole, through a bitmap so that nothing flickers.
void PaintSheet(HDC device, const RECT &client, const RECT &sheet, const SheetPage &page);
