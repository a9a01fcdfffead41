#include "frame/text_measure.h"

#include "paint/text_measure.h"

namespace tessarine {

int GetLabelLen(const Session *session, const char *text, int font) {
    return GetLabelLen(session->form.Fonts[font], text);
}

int GetLabelHeight(const Session *session, const char *text, int font) {
    return GetLabelHeight(session->form.Fonts[font], text);
}

int TruncateText(const Session *session, char *text, int width, int font) {
    TruncateText(session->form.Fonts[font], text, width);
    return 1;
}

} // namespace tessarine
