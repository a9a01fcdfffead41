// What all items share that a host makes without the mouse, in a section that it names.
#pragma once

#include "state/session.h"

namespace tessarine {

// False when the section isn't in the form, a command is pending, or after a message the table is
// full. Otherwise nothing is selected any more.
bool MayAddTo(Session *session, int section);
ItemRecord *BarOf(Session *session, int section); // of a section in the form
void SelectBar(Session *session, int section);    // without telling anyone
// An item of the type at FocusRect, which is taken as it stands.
ItemRecord ItemInSection(Session *session, int type, int section);
// Puts the record, whose rectangle is FocusRect, in the table's order. The row.
int AddItem(Session *session, const ItemRecord &item);
// Moves everything but the group from y on down, by what the section grows. False when that leaves
// a form's range: then nothing has changed.
bool GrowSection(Session *session, int section, int y, int growth);

} // namespace tessarine
