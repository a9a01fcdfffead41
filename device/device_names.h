// The printer as the blocks of the common dialogs tell it: its names and its settings.
#pragma once

#include "state/session.h"

namespace tessarine {

HGLOBAL GetDevNames(Session *session);
HGLOBAL GetDevMode(Session *session);
// Takes device, driver and port; 0 when the block is none. The first leaves the form unmarked.
int TakeDevNames(Session *session, HGLOBAL handle);
int SetDevNames(Session *session, HGLOBAL handle);
int SetDevMode(Session *session, HGLOBAL handle, int takeAll);

} // namespace tessarine
