// The group: the one item of type 0, whose members are computed and never stored.
#pragma once

#include "state/session.h"

namespace tessarine {

int GroupRow(const Session *session); // the first row of type 0, or NO_ROW
bool IsGroupSelected(const Session *session);
// True while the group is selected, for rows that touch its rectangle, less those that Shift and a
// click took out, and those that a click took in.
bool IsGroupMember(const Session *session, int row);
void MarkGroup(Session *session);           // GroupMark 1 or 0 on every row
int TakeMarked(Session *session);           // the first marked row, its mark cleared, or NO_ROW
int LeftmostMarked(const Session *session); // on equal places the lower row; NO_ROW
int TopmostMarked(const Session *session);

} // namespace tessarine
