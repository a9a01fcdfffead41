// New items come in two steps: a command shows a rectangle of the right size, and the next press
// of a button puts the record into the table.
#pragma once

#include "state/session.h"

namespace tessarine {

// 0 when a command is pending, 1 after a message when the table is full, -1 when a new item may
// begin: then nothing is selected any more.
int ItemRoomCheck(Session *session);
constexpr int ITEM_MAY_BEGIN = -1; // of ItemRoomCheck

// Centres a rectangle of the size in the area for new items, or puts it at x or y where these
// aren't negative. Unless free, it is cut to what is on view. A copied block may have a negative
// width, and keeps it: where its items go hangs on that.
void NewItemRect(Session *session, int height, int width, RECT *rectangle, int x, int y, bool free);
// Shows a rectangle of the size in the middle of the view, the pointer on it.
void BeginPlacement(Session *session, int command, int height, int width);
// The same with FocusRect as it stands.
void ShowPlacement(Session *session, int command);

// A new item of the type at FocusRect, which is held in its section first.
ItemRecord ItemAtFocus(Session *session, int type);
// Puts the record, whose rectangle is FocusRect, in the table's order. The row, or NO_ROW after a
// message: while an item is being placed a host may have filled the table.
int InsertItem(Session *session, const ItemRecord &item);
// Puts the record of ItemAtFocus into the table, then tells the rest that a placement is over. The
// row, or NO_ROW as above.
int SettlePlacement(Session *session, const ItemRecord &item);

void BeginLabel(Session *session);
void PlaceLabel(Session *session);
void BeginLine(Session *session);
void PlaceLine(Session *session);

} // namespace tessarine
