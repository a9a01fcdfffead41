// Sizes of texts by the printer's own text metrics, form units.
#pragma once

#include "frame/session.h"

namespace tessarine {

// The size of a text in a font row. With the height alone wanted, the width may be 0.
SIZE TextExtent(Session *session, int font, const char *text, bool height_alone);
// Gives the measuring context its stock font back: a section has ended.
void EndMeasuring(const Session *session);

} // namespace tessarine
