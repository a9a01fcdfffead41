// Sections: which are printed, and where they land.
#pragma once

#include "state/session.h"

namespace tessarine {

int PrintSection(Session *session, int section, uint32_t outline); // 1 when it was laid out
int SectionSelected(Session *session, int section);                // its PrintNow
// The device that composition draws on: the printer, or the page's recording.
HDC PageDevice(const Session *session);

} // namespace tessarine
