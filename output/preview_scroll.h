// The page of a preview on view, and where it stands in the window.
#pragma once

#include "state/session.h"

namespace tessarine {

// Scroll bars from 0 to 100: at the start of a preview, and after each message.
void PlaceScrollBars(Session *session);
void UpdateScrollBars(Session *session);

// Brings a finished page, from 0, on view without painting it. A page that can't be read is fatal.
void TakePage(Session *session, int page);
// Scrolling by an amount of form units, on across page ends; each paints when anything changed.
void ScrollUp(Session *session, int amount);
void ScrollDown(Session *session, int amount);
void ScrollLeft(Session *session, int amount);
void ScrollRight(Session *session, int amount);
void TrackVertical(Session *session, int position);   // thumb at 0 to 100
void TrackHorizontal(Session *session, int position); // thumb at 0 to 100

} // namespace tessarine
