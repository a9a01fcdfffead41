// The font of the selected item or group.
#pragma once

#include "state/session.h"

namespace tessarine {

// Gives the font, or one that the user chooses when it is null, to the selected label or field, or
// to the group and its labels and fields. 0 when the user cancelled, no row is free or the font
// can't be made; 1 also when nothing is selected that has a font.
int FrFonts(Session *session, const LOGFONTA *font);

} // namespace tessarine
