// Access to the pages of a saved report.
#pragma once

#include "state/session.h"

namespace tessarine {

HMETAFILE RepView(RepViewParams *block, int32_t *pageNumber, HGLOBAL devNames, HGLOBAL devMode);
// Ends a session that has a page store: pages, window, memory. Also the last steps of a run.
void EndPageSession(Session *session);

} // namespace tessarine
