// The eight handles of a selection.
#pragma once

#include "state/session.h"

namespace tessarine {

enum {
    HANDLE_TOP,
    HANDLE_BOTTOM,
    HANDLE_RIGHT,
    HANDLE_LEFT,
    HANDLE_TOP_LEFT,
    HANDLE_TOP_RIGHT,
    HANDLE_BOTTOM_LEFT,
    HANDLE_BOTTOM_RIGHT
};
constexpr int NO_HANDLE = -1;

// Which edges a handle holds.
struct HandleSides {
    int across; // -1 left, 0 neither, 1 right
    int down;   // -1 top, 0 neither, 1 bottom

    bool operator==(const HandleSides &other) const = default;
};

HandleSides SidesOf(int handle);
int HandleOf(HandleSides sides); // NO_HANDLE for neither

// Lays the handles on an item; bar_height is a caption's, label_form true on a label form.
void PlaceHandles(const ItemRecord &item, int bar_height, bool label_form, RECT *handles);
bool HandleShown(const RECT &handle);
// The first handle that holds the place, or NO_HANDLE.
int HandleAt(const RECT *handles, int x, int y);
HCURSOR HandleCursor(const Session *session, int handle);

} // namespace tessarine
