// A section's bar and what hangs on it: its stretch of the item table, its record, its fields.
#pragma once

#include "state/session.h"

namespace tessarine {

// Whether the item table has a row for one more bar, and 16 bits a place for all below it.
bool HasRoomForSection(const Session *session);
// Switches the section on, with an empty band in its place. The row of its bar.
int InsertSection(Session *session, int section);
// Takes the section out with its items, and a sort header's row of the break table. False when the
// session was closed meanwhile. Fatal with code 15 without its bar or the group.
bool RemoveSection(Session *session, int section);

} // namespace tessarine
