// The dotted rectangle that stands for what is dragged, drawn straight on the screen.
#pragma once

#include "state/session.h"

namespace tessarine {

// Neither draws twice. Draw and erase must see the same rectangle: erase before changing FocusRect.
int FrDrawFocusRect(Session *session, HDC device, const RECT &rectangle);  // 0: it has no width
int FrEraseFocusRect(Session *session, HDC device, const RECT &rectangle); // 1
// The same for FocusRect on the window.
void ShowFocus(Session *session);
void HideFocus(Session *session);

} // namespace tessarine
