// The end of a run.
#pragma once

#include "state/session.h"

namespace tessarine {

int RepExit(int sessionId, int fill, int32_t *pageCount);

// Closes the output and marks the run for its release, which comes when nothing works on it any
// more. A run that isn't whole doesn't report its count.
void EndRun(Session *session, bool whole);
// Frees all that a run holds, and the session.
void ReleaseRun(Session *session);

} // namespace tessarine
