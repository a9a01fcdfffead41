// The user field table: its rows from creation to deletion, and where a user field is in use.
// Refusals are told in boxes and change nothing.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int MAX_USER_NAME = 94; // characters typed

bool HasUserFields(const Session *session); // false after a message

// The first free row with its defaults, still not in use, or -1 after a message.
int NewUserField(Session *session);
// Gives the row the name as it was typed, trimmed and in upper case. False when it is empty, and
// after a message under the owner when it can't be a name or another row has it.
bool NameUserField(Session *session, HWND owner, int row, const char *typed);
// Puts a row with its name and type to use: prompt from the name, width by type.
void SettleUserField(Session *session, int row);

bool UsesUserField(const Session *session, const Cell *cells, int row);
// 1 when the field was released; 0 after telling where it is in use.
int DeleteUserField(Session *session, int row);

} // namespace tessarine
