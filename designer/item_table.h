// The order of the item table: section by section, each with its bar first and then its items by
// y and x. Row 0 is a section bar and exactly one row is the group. Nothing sorts the table;
// whatever writes it asks for its place here.
#pragma once

#include "state/session.h"

namespace tessarine {

enum { SHIFT_OPEN = 'B', SHIFT_REMOVE = 'D' };

constexpr int NO_ROW = -1;

// The row at which an item of the section with the rectangle FocusRect has its place, always behind
// the section's bar.
int InsertionRow(Session *session, int section);
// Opens or removes count rows at the row and renews the BarItem of the sections. Does nothing when
// the rows don't fit the table.
void ShiftItems(Session *session, int row, int count, int operation);
// Puts the record, whose rectangle is FocusRect, at its place in place of a row. Its new row.
int ReplaceRow(Session *session, int row, const ItemRecord &item);
// Writes the row of each section bar from a row on into its section.
void RenewBars(Session *session, int from);

bool FitsRecord(int units); // in 16 bits
bool FitsRecord(const RECT &place);
RECT RectOf(const ItemRecord &item);
void SetPlace(ItemRecord *item, const RECT &place); // x, y, width, height
// The selected row's record, or null.
ItemRecord *Selected(Session *session);
const ItemRecord *Selected(const Session *session);
// The row of the bar with this section, or NO_ROW.
int BarOfSection(const Session *session, int section);

} // namespace tessarine
