// A section's band: its frame, its caption and the rulers at its sides.
#pragma once

#include <string>

#include "state/session.h"

namespace tessarine {

// The section's name, and for a sort header or footer the field by which it sorts.
std::string CaptionOf(const Session *session, int section);
void PaintSectionBar(Session *session, HDC device, const ItemRecord &bar);

} // namespace tessarine
