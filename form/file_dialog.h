// The one routine for the common file dialogs.
#pragma once

#include "state/session.h"

namespace tessarine {

// name: in the initial name, out the chosen one; 128 characters are used. In filter "|" separates
// the parts. False when the user cancelled; the session's parent is then told with 631.
bool AskFileName(Session *session, char *name, const char *filter, const char *title, bool save);

} // namespace tessarine
