// The user field table's commands, with their dialogs.
#pragma once

#include "state/session.h"

namespace tessarine {

// The row that the user chooses, or -1 on Cancel and after a message that there is none.
int ChooseUserField(Session *session);

void CreateUserField(Session *session);
void ModifyUserField(Session *session);
void RemoveUserField(Session *session);

} // namespace tessarine
