// FocusRect becomes the selected item's rectangle, or the selected section's band.
#pragma once

#include "state/session.h"

namespace tessarine {

int SizeItem(Session *session); // non-zero when it was applied, as SizeSection
int SizeSection(Session *session);

} // namespace tessarine
