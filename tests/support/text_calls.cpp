#include "tests/support/text_calls.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "tests/support/failing_call.h"

namespace {

constexpr int LINE = 40;

std::vector<std::string> lines;
decltype(&SelectClipRgn) clip_in_earnest = nullptr;

std::string Print(const char *word, const RECT &place) {
    char text[80];
    std::snprintf(text, sizeof text, "%s %ld,%ld,%ld,%ld", word, place.left, place.top, place.right,
                  place.bottom);
    return text;
}

std::string As(UINT format) {
    char text[20];
    std::snprintf(text, sizeof text, " as %X", format);
    return text;
}

int WINAPI DrawLogged(HDC device, LPCSTR text, int length, LPRECT place, UINT format) {
    const std::string shown = length < 0 ? text : std::string(text, static_cast<size_t>(length));
    if (format & DT_CALCRECT) {
        lines.push_back(Print("measure", *place) + As(format));
        const auto feeds = std::count(shown.begin(), shown.end(), '\n');
        place->bottom = place->top + (static_cast<int>(feeds) + 1) * LINE;
    } else {
        lines.push_back(Print("draw", *place) + As(format) + ": " + shown);
        TextOutA(device, place->left, place->top, shown.c_str(), static_cast<int>(shown.size()));
    }
    return place->bottom - place->top;
}

int WINAPI ClipLogged(HDC device, HRGN region) {
    RECT box{};
    if (region) GetRgnBox(region, &box);
    lines.push_back(region ? Print("clip", box) : "no clip");
    return clip_in_earnest(device, region);
}

} // namespace

TextCalls::TextCalls()
    : draw_(ReplaceImport("DrawTextA", reinterpret_cast<void *>(DrawLogged))),
      clip_(ReplaceImport("SelectClipRgn", reinterpret_cast<void *>(ClipLogged))) {
    clip_in_earnest = reinterpret_cast<decltype(clip_in_earnest)>(clip_);
    lines.clear();
}

TextCalls::~TextCalls() {
    ReplaceImport("DrawTextA", draw_);
    ReplaceImport("SelectClipRgn", clip_);
}

std::vector<std::string> TextCalls::Take() { return std::exchange(lines, {}); }
