// A record of a run, from its values to the page.
#pragma once

#include "state/session.h"

namespace tessarine {

int RepRec(int sessionId, uint32_t outline);

void MoveRecord(Session *session); // InputTable's values to the field table

} // namespace tessarine
