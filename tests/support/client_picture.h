// What a window shows in its client area, pixel by pixel.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "state/windows.h"

struct ClientPicture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels; // row by row from the top, as 0x00RRGGBB

    uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
    int Count(uint32_t color) const;
    int CountInRow(int y, uint32_t color) const;
};

ClientPicture PictureOf(HWND window);
// A picture of the same size that a routine draws on white, in pixels from the top left.
ClientPicture DrawnLike(HWND window, const std::function<void(HDC)> &draw);
// How many pixels differ; all of them when the sizes do.
int Differences(const ClientPicture &left, const ClientPicture &right);
