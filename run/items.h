// Painting one item of a section on the page.
#pragma once

#include "state/session.h"

namespace tessarine {

void PrintItem(Session *session, HDC device, int row);
// The item's rectangle on the page, form units.
RECT ItemRectangle(const Session *session, const ItemRecord &item);
// Raises RowBottom to the item's bottom.
void RaiseRowBottom(Session *session, const ItemRecord &item);

} // namespace tessarine
