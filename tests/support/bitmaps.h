// Small device-independent bitmaps of every depth and compression.
#pragma once

#include <string>
#include <vector>

#include "state/windows.h"

// Four pixels across and two down: the left half red, the right half blue.
struct SampleBitmap {
    SampleBitmap(int depth, DWORD compression);

    std::string info; // header, masks and colours
    std::string bits;
    std::string name; // "8 bits, compression 1"
};

std::vector<SampleBitmap> AllSampleBitmaps();

// The picture row of a form file that holds the blocks, half an inch high and an inch across.
std::string PictureRowOf(const std::string &info, const std::string &bits);
