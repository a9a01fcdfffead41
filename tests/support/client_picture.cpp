#include "tests/support/client_picture.h"

#include <algorithm>

namespace {

// A bitmap of the window's kind and its client area's size, drawn on and read back.
ClientPicture Take(HWND window, const std::function<void(HDC memory, HDC source)> &draw) {
    RECT client{};
    GetClientRect(window, &client);
    ClientPicture picture{client.right, client.bottom, {}};
    picture.pixels.resize(static_cast<size_t>(client.right * client.bottom));
    const HDC source = GetDCEx(window, nullptr, DCX_CACHE); // the window's own has a mapping
    const HDC memory = CreateCompatibleDC(source);
    const HBITMAP bitmap = CreateCompatibleBitmap(source, client.right, client.bottom);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    draw(memory, source);
    SelectObject(memory, old);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(client.bottom), picture.pixels.data(), &info,
              DIB_RGB_COLORS);
    for (uint32_t &pixel : picture.pixels) pixel &= 0xFFFFFF;
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
    return picture;
}

} // namespace

int ClientPicture::Count(uint32_t color) const {
    return static_cast<int>(std::count(pixels.begin(), pixels.end(), color));
}

int ClientPicture::CountInRow(int y, uint32_t color) const {
    const auto row = pixels.begin() + static_cast<ptrdiff_t>(y) * width;
    return static_cast<int>(std::count(row, row + width, color));
}

ClientPicture PictureOf(HWND window) {
    return Take(window, [&](HDC memory, HDC source) {
        RECT client{};
        GetClientRect(window, &client);
        BitBlt(memory, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    });
}

ClientPicture DrawnLike(HWND window, const std::function<void(HDC)> &draw) {
    return Take(window, [&](HDC memory, HDC) {
        RECT client{};
        GetClientRect(window, &client);
        FillRect(memory, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        draw(memory);
    });
}

int Differences(const ClientPicture &left, const ClientPicture &right) {
    if (left.width != right.width || left.height != right.height)
        return static_cast<int>(std::max(left.pixels.size(), right.pixels.size()));
    int count = 0;
    for (size_t pixel = 0; pixel < left.pixels.size(); ++pixel)
        count += left.pixels[pixel] != right.pixels[pixel];
    return count;
}
