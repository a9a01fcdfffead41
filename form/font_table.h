// The font table's rows: slots and release.
#pragma once

#include "state/session.h"

namespace tessarine {

int FindFontRow(Session *session);              // a free row or -1 after a message
void ReleaseFontRow(Session *session, int row); // deletes the handles and clears the row
int CreateDefaultBoldFont(Session *session);    // the row, 0 after a message

} // namespace tessarine
