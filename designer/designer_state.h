// State that only the form designer and the routines on an open form use.
#pragma once

#include "frame/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct DesignerState {
    int32_t SelectedItem;   // row of the item with the focus, -1 none
    int32_t PendingCommand; // -1 idle, else the number of the command in progress
    RECT FocusRect;         // form units
    uint32_t SnapToGrid;
    int32_t GridSize;
    int32_t ExpressionMode;
    FieldRecord EditField; // the field that a dialog edits
    int32_t DialogRow;     // the row that a dialog works on
    char HelpFile[270];    // the help file's name and the window in which it shows
};

} // namespace tessarine
