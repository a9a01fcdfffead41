// The keys of the host's table.
#pragma once

#include "state/session.h"

namespace tessarine {

// True when the message was a key of the table in AccelTable: its command has been sent.
bool TranslateKey(Session *session, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace tessarine
