// The three entry points of a run, and its end.
#pragma once

#include "frame/session.h"

namespace tessarine {

int RepInit(RepParams *params, int feedMode, HGLOBAL devNames, HGLOBAL devMode);
int RepRec(int sessionId, uint32_t outline);
int RepExit(int sessionId, int fill, int32_t *pageCount);
int EndRun(Session *session); // 0; the session no longer exists afterwards

} // namespace tessarine
