// Edits of the selected item, and alike of all members of the group.
#pragma once

#include "state/session.h"

namespace tessarine {

void EditPosition(Session *session); // of text in its item
void EditOutline(Session *session);
void EditBackground(Session *session);

} // namespace tessarine
