// The measures of text that hosts call, by session and font row.
#pragma once

#include "frame/session.h"

namespace tessarine {

int GetLabelLen(const Session *session, const char *text, int font);
int GetLabelHeight(const Session *session, const char *text, int font);
int TruncateText(const Session *session, char *text, int width, int font); // always 1

} // namespace tessarine
