// The tables that every form shares: section names, system fields, summary and date format names.
#pragma once

#include "state/session.h"

namespace tessarine {

void BuildSectionNames(Session *session); // row 11 by the host's label flag
void BuildSystemFields(Session *session);
void BuildSummaryNames(Session *session);
void BuildDateFormatNames(Session *session);
// The 48 operators and functions; the help lines are allocated with OurAlloc.
void BuildOperatorTable(Session *session);
void FreeOperatorTable(Session *session);

} // namespace tessarine
