// Text that runs over several lines, and over the end of the page.
#pragma once

#include "state/session.h"

namespace tessarine {

void PrintWrappedField(Session *session, HDC device, int row);
// The end of the next line in the text, -1 when none is left; out has 301 characters.
int NextTextLine(Session *session, int row, char *out, int start);

} // namespace tessarine
