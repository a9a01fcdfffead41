// Scrolling the form by its bars, and by the keys when they have nothing to nudge.
#pragma once

#include "state/session.h"

namespace tessarine {

// wParam of WM_HSCROLL and WM_VSCROLL: the code, and the thumb's position from 0 to 100.
void ScrollFormAcross(Session *session, WPARAM wParam);
void ScrollFormDown(Session *session, WPARAM wParam);

void FormLineUp(Session *session);
void FormLineDown(Session *session);
void FormLineLeft(Session *session);
void FormLineRight(Session *session);
// By half of the whole form, not of the view.
void HalfFormUp(Session *session);
void HalfFormDown(Session *session);

} // namespace tessarine
