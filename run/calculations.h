// The calculated fields of a run.
#pragma once

#include "state/session.h"

namespace tessarine {

// Computes the calculated break fields of the table that the session works on. Fatal, code 4.
void EvalBreakFields(Session *session);
// Computes the calculations whose SummarySection lies from low to high. Fatal, code 4.
void CalcFields(Session *session, int low, int high);

} // namespace tessarine
