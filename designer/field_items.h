// New field items on an open form, at a place that the caller names.
//
// Each takes the section's row and a place in form units; a negative x or y means the middle of
// the section. Each returns the new item's row, or -1 when a command is pending, a table is full
// (after a message), the section is not in the form or the place is beyond a form's range.
#pragma once

#include "state/session.h"

namespace tessarine {

// A data field that CheckFieldProc knows. With wrap an item that passes the bar's right end starts
// a new line; a section that is too low for the item grows.
int AddNewDataField(Session *session, const char *name, int section, int x, int y, int wrap);
// A calculation field; -1 also after a message about its expression.
int AddNewCalcField(Session *session, const char *text, int section, const char *description, int x,
                    int y);
// The system field with this row.
int AddNewSysField(Session *session, int index, int section, int x, int y);

} // namespace tessarine
