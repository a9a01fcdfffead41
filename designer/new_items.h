// Labels and lines that a host makes, and label texts that it hands back.
#pragma once

#include "state/session.h"

namespace tessarine {

// The new row, or -1: a command is pending, the table is full (after a message), the section is not
// in the form, the place is not in the section. The section's bar is selected then. The font row
// serves to measure alone.
int AddNewLabelItem(Session *session, const char *text, int section, int x, int y, int font);
// The rectangle, form units, lies inside the section; it is neither snapped nor corrected.
int AddNewLineItem(Session *session, int section, int angle, const RECT &rectangle, int width);
// Room for the prefix "CALC->" is the caller's: text may grow by 6 characters.
int UpdateLabelText(Session *session, char *text);

// What a label of the text takes, form units.
SIZE LabelSize(const FontEntry &font, const char *text);
// A label that no user has sized takes the size of its text.
void AutoSizeLabel(Session *session, int row);

} // namespace tessarine
