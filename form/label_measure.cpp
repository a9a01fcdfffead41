#include "form/label_measure.h"

#include <algorithm>
#include <cstring>

namespace tessarine {

namespace {

int WidthOf(const FontEntry &font, char character) {
    return font.CharWidth[static_cast<unsigned char>(character)];
}

} // namespace

int GetLabelLen(const FontEntry &font, const char *text) {
    int widest = 0;
    int width = 0;
    for (const char *c = text; *c; ++c) {
        if (*c == '\r' || *c == '\n') {
            width = 0;
            continue;
        }
        width += WidthOf(font, *c);
        widest = std::max(widest, width);
    }
    return widest;
}

int GetLabelHeight(const FontEntry &font, const char *text) {
    const auto feeds = std::count(text, text + std::strlen(text), '\n');
    return (static_cast<int>(feeds) + 1) * static_cast<int>(font.Height);
}

void TruncateText(const FontEntry &font, char *text, int width) {
    if (!text) return;
    int used = 0;
    for (char *c = text; *c; ++c) {
        used += WidthOf(font, *c);
        if (used > width) {
            *c = 0;
            break;
        }
    }
}

} // namespace tessarine
