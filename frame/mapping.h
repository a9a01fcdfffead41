// One logical unit is 1/250 inch on every device.
#pragma once

#include "frame/session.h"

namespace tessarine {

// Sets MM_ANISOTROPIC with window extent 250 by 250 and the session's LogPixelsX and LogPixelsY.
void ApplyMapping(const Session *session, HDC device);

// Inches to form units: multiplied by 250.0 and truncated.
inline int InchesToUnits(double inches) { return static_cast<int>(inches * 250.0); }

} // namespace tessarine
