// The end of a designer's session. Nothing is released inside a message or a call: each marks the
// session, and the boundary releases it.
#pragma once

#include "state/session.h"

namespace tessarine {

// Asks about unsaved changes. False when the form stays: cancelled, not saved, or already asked.
bool CloseDesigner(Session *session);
// The same as a command of the menu: the session ends whatever the answer. Behind a refusal its
// window stays, belongs to nobody and takes nothing but a close.
void ExitDesigner(Session *session);
// The window is being destroyed by another's hand: what it shows can't be asked about any more.
void LoseWindow(Session *session);
// Releases the session, and keeps its memory for the next one since a host may still look there.
void EndDesigner(Session *session);

} // namespace tessarine
