// The start of a run.
#pragma once

#include "state/session.h"

namespace tessarine {

int RepInit(RepParams *params, int feedMode, HGLOBAL devNames, HGLOBAL devMode);

} // namespace tessarine
