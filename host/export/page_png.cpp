#include "host/export/page_png.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include <winspool.h>

#include "host/cli/failure.h"
#include "host/data/files.h"

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#endif
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace {

constexpr int MOST_SAMPLES = 3; // by which text is smoothed, across and down
constexpr int MOST_PIXELS = 60'000'000;
constexpr double USUAL_OFFSET = 0.25; // inches that most printers can't reach

// A bitmap of 32 bits a pixel with a context on it.
class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        device_ = CreateCompatibleDC(nullptr);
        void *bits = nullptr;
        bitmap_ = CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (!bitmap_) {
            DeleteDC(device_);
            throw Failure("there is no memory for a picture of " + std::to_string(width) + " by " +
                          std::to_string(height) + " pixels; choose a smaller --dpi");
        }
        pixels_ = static_cast<const uint32_t *>(bits);
        old_bitmap_ = SelectObject(device_, bitmap_);
        PatBlt(device_, 0, 0, width, height, WHITENESS);
    }
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;
    ~Canvas() {
        SelectObject(device_, old_bitmap_);
        DeleteObject(bitmap_);
        DeleteDC(device_);
    }

    HDC Device() const { return device_; }

    // Red, green and blue of each square of samples, averaged.
    std::vector<unsigned char> Reduced(int samples) const {
        const int width = width_ / samples;
        const int height = height_ / samples;
        std::vector<unsigned char> picture;
        picture.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                AppendAverage(x * samples, y * samples, samples, &picture);
        return picture;
    }

private:
    void AppendAverage(int left, int top, int samples, std::vector<unsigned char> *picture) const {
        unsigned red = 0;
        unsigned green = 0;
        unsigned blue = 0;
        for (int y = top; y < top + samples; ++y)
            for (int x = left; x < left + samples; ++x) {
                const uint32_t pixel = pixels_[y * width_ + x];
                red += pixel >> 16 & 0xFF;
                green += pixel >> 8 & 0xFF;
                blue += pixel & 0xFF;
            }
        const unsigned count = static_cast<unsigned>(samples * samples);
        for (const unsigned sum : {red, green, blue})
            picture->push_back(static_cast<unsigned char>(sum / count));
    }

    int width_;
    int height_;
    HDC device_;
    HBITMAP bitmap_;
    HGDIOBJ old_bitmap_;
    const uint32_t *pixels_;
};

// Pages begin where the printer's reach begins: the offset of the default printer, in pixels.
POINT PageOffset(int dpi) {
    char name[200] = "";
    DWORD size = sizeof name;
    const HDC printer =
        GetDefaultPrinterA(name, &size) ? CreateDCA("WINSPOOL", name, nullptr, nullptr) : nullptr;
    if (!printer) {
        const LONG offset = static_cast<LONG>(USUAL_OFFSET * dpi);
        return {offset, offset};
    }
    const POINT offset{
        MulDiv(GetDeviceCaps(printer, PHYSICALOFFSETX), dpi, GetDeviceCaps(printer, LOGPIXELSX)),
        MulDiv(GetDeviceCaps(printer, PHYSICALOFFSETY), dpi, GetDeviceCaps(printer, LOGPIXELSY))};
    DeleteDC(printer);
    return offset;
}

void PlayPage(HDC device, const ReportPages &report, int page, int dpi) {
    const HMETAFILE metafile = MetafileOf(report.pages[static_cast<size_t>(page - 1)]);
    if (!metafile) throw Failure("page " + std::to_string(page) + " is no metafile");
    const POINT offset = PageOffset(dpi);
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, UNITS_PER_INCH, UNITS_PER_INCH, nullptr);
    SetViewportExtEx(device, dpi, dpi, nullptr);
    SetViewportOrgEx(device, offset.x, offset.y, nullptr);
    PlayMetaFile(device, metafile);
    DeleteMetaFile(metafile);
}

void AppendBytes(void *context, void *data, int size) {
    static_cast<std::string *>(context)->append(static_cast<char *>(data),
                                                static_cast<size_t>(size));
}

} // namespace

void WritePagePng(const ReportPages &report, int page, int dpi, const std::string &path) {
    const int width = static_cast<int>(report.header.PaperWidth * static_cast<float>(dpi));
    const int height = static_cast<int>(report.header.PaperHeight * static_cast<float>(dpi));
    if (width < 1 || height < 1) throw Failure(path + ": the report names no paper size");
    int samples = MOST_SAMPLES;
    while (samples > 1 && static_cast<int64_t>(width) * height * samples * samples > MOST_PIXELS)
        --samples;
    const Canvas canvas(width * samples, height * samples);
    PlayPage(canvas.Device(), report, page, dpi * samples);
    GdiFlush();
    const std::vector<unsigned char> picture = canvas.Reduced(samples);
    std::string png;
    stbi_write_png_to_func(AppendBytes, &png, width, height, 3, picture.data(), width * 3);
    WriteFileBytes(path, png);
}
