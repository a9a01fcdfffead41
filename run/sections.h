// Where a section lands, and when a page ends.
#pragma once

#include "state/session.h"

namespace tessarine {

int PrintSection(Session *session, int section, uint32_t outline); // 1 when it was laid out
int SectionSelected(Session *session, int section);                // its PrintNow
int PageBreak(Session *session, int section); // 1 when a page was ended or the run is cancelled
// Offers trial records, for aligning forms in the printer: every section with the values that
// stand, each time on a sheet of its own.
void TrialPrint(Session *session);
void PrintLabelFrame(Session *session, int row, uint32_t outline);
// The device that composition draws on: the printer, or the page's recording.
HDC PageDevice(const Session *session);

} // namespace tessarine
