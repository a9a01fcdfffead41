// Help on the designer's window.
#pragma once

#include "state/session.h"

namespace tessarine {

void ShowHelpIndex(Session *session);
void ShowHelpOn(Session *session, WPARAM context); // over the designer's window
// F1 on an open menu chooses the entry that stands out, and its command becomes the question.
void AskForHelpInMenu(Session *session);

} // namespace tessarine
