// The preview window of a run, and what the run tells it.
#pragma once

#include "commands.h"
#include "state/session.h"

namespace tessarine {

LRESULT CALLBACK RepWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK JumpParam(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Enables the commands of the menu that make sense now.
void SetMenuState(Session *session);
// The status strip and the page on view; nothing in a session without a window of its own.
void PaintPreview(Session *session);
void PaintStatusStrip(Session *session);

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
