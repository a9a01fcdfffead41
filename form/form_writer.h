// Saving a form with its backup and its lock.
#pragma once

#include "state/session.h"

namespace tessarine {

// 1 when the save has run, also when it ended with an error already shown; 0 when nothing was
// tried. The path buffer (260 bytes) takes the ending and the chosen name.
int FrSave(Session *session, char *path);
int SaveAs(Session *session, char *path);

} // namespace tessarine
