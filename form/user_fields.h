// The user field table: which row is free, and where a user field is in use.
#pragma once

#include "frame/session.h"

namespace tessarine {

int NewUserField(Session *session); // a row with its defaults, or -1 after a message
void SettleUserField(UserFieldRecord *record); // width by type, prompt from the name
// 1 when the field was released; 0 after telling where it is in use.
int DeleteUserField(Session *session, int row);
bool UsesUserField(const Session *session, const uint16_t *cells, int row);

} // namespace tessarine
