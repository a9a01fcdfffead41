#include "frame/text_measure.h"

#include <algorithm>

namespace tessarine {

namespace {

int WidthOf(const FontEntry &font, char character) {
    return font.CharWidth[static_cast<unsigned char>(character)];
}

} // namespace

int GetLabelLen(const Session *session, const char *text, int font) {
    const FontEntry &row = session->form.Fonts[font];
    int widest = 0;
    int width = 0;
    for (const char *c = text; *c; ++c) {
        if (*c == '\r' || *c == '\n') {
            width = 0;
            continue;
        }
        width += WidthOf(row, *c);
        widest = std::max(widest, width);
    }
    return widest;
}

int GetLabelHeight(const Session *session, const char *text, int font) {
    const auto feeds = std::count(text, text + lstrlenA(text), '\n');
    return (static_cast<int>(feeds) + 1) * static_cast<int>(session->form.Fonts[font].Height);
}

int TruncateText(const Session *session, char *text, int width, int font) {
    if (!text) return 1;
    const FontEntry &row = session->form.Fonts[font];
    int used = 0;
    for (char *c = text; *c; ++c) {
        used += WidthOf(row, *c);
        if (used > width) {
            *c = 0;
            break;
        }
    }
    return 1;
}

} // namespace tessarine
