// What passes between a dialog and its opener, and where help is found.
#pragma once

#include "state/windows.h"
#include "tessarine_records.h"

namespace tessarine {

struct DialogState {
    FieldRecord EditField; // the field that a dialog edits
    int32_t DialogRow;     // the row that a dialog works on
    char HelpFile[270];    // the help file's name and the window in which it shows
};

} // namespace tessarine
