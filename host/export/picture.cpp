#include "host/export/picture.h"

#include "host/base/failure.h"
#include "host/base/files.h"

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

void AppendBytes(void *context, void *data, int size) {
    static_cast<std::string *>(context)->append(static_cast<char *>(data),
                                                static_cast<size_t>(size));
}

} // namespace

Picture::Picture(int width, int height) : width_(width), height_(height) {
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

Picture::~Picture() {
    SelectObject(device_, old_bitmap_);
    DeleteObject(bitmap_);
    DeleteDC(device_);
}

void Picture::Write(const std::string &path, int samples) const {
    GdiFlush();
    const int width = width_ / samples;
    const int height = height_ / samples;
    const std::vector<unsigned char> colors = Reduced(samples);
    std::string png;
    stbi_write_png_to_func(AppendBytes, &png, width, height, 3, colors.data(), width * 3);
    WriteFileBytes(path, png);
}

std::vector<unsigned char> Picture::Reduced(int samples) const {
    const int width = width_ / samples;
    const int height = height_ / samples;
    std::vector<unsigned char> colors;
    colors.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) AppendAverage(x * samples, y * samples, samples, &colors);
    return colors;
}

void Picture::AppendAverage(int left, int top, int samples,
                            std::vector<unsigned char> *colors) const {
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
        colors->push_back(static_cast<unsigned char>(sum / count));
}
