// The commands that place a new field: of the host, calculated, of the system, of the user.
#pragma once

#include "state/session.h"

namespace tessarine {

void BeginField(Session *session, int command); // COMMAND_BARCODE_FIELD to COMMAND_USER_FIELD
void PlaceField(Session *session);

// FocusRect becomes the rectangle of a new item for the field, as by NewItemRect.
void NewFieldRect(Session *session, int field, int x, int y, int font, bool free);
// A new item, whose place and section stand, takes the field: with its sample, numbers to the
// right. One that lies in a footer is a total from then on.
void GiveField(Session *session, int field, ItemRecord *item);

} // namespace tessarine
