// The rulers: one over the form in the band, one at either side of each section.
#pragma once

#include "state/session.h"

namespace tessarine {

enum class BarSide { LEFT, RIGHT };

int BandHeight(const Session *session); // form units; 0 when the form shows no rulers
void PaintBandLines(const Session *session, HDC device);
void PaintTopRuler(const Session *session, HDC device);
// The ruler in the margin beside a section's bar, counted from the lower edge of its caption. Its
// numbers have the font in force, one RulerFont for both sides and the caption.
void PaintSideRuler(const Session *session, HDC device, const ItemRecord &bar, BarSide side);

} // namespace tessarine
