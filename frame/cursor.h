// The cursor around long work.
#pragma once

#include "state/windows.h"

namespace tessarine {

// The cursor that stood when it was made comes back with its end, also after a failure.
class CursorKept {
public:
    CursorKept() : cursor_(GetCursor()) {}
    CursorKept(const CursorKept &) = delete;
    CursorKept &operator=(const CursorKept &) = delete;
    ~CursorKept() { SetCursor(cursor_); }

private:
    HCURSOR cursor_;
};

} // namespace tessarine
