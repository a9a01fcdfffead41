// A picture to draw on, which becomes a PNG file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

class Picture {
public:
    // In pixels; all white. Throws Failure when there is no memory for it.
    Picture(int width, int height);
    ~Picture();
    Picture(const Picture &) = delete;
    Picture &operator=(const Picture &) = delete;

    HDC Device() const { return device_; }
    // Writes a PNG, each of whose pixels is the average of a square of samples by samples.
    void Write(const std::string &path, int samples) const;

private:
    std::vector<unsigned char> Reduced(int samples) const;
    void AppendAverage(int left, int top, int samples, std::vector<unsigned char> *colors) const;

    int width_;
    int height_;
    HDC device_;
    HBITMAP bitmap_;
    HGDIOBJ old_bitmap_;
    const uint32_t *pixels_;
};
