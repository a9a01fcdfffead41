// What captions and rulers look like: grey panels, and the one font of their texts.
#pragma once

#include "state/windows.h"

namespace tessarine {

// A grey rectangle that stands out; the next pen follows its own.
void RaisedPanel(HDC device, const RECT &place, HPEN next);

// The font of captions and of the numbers on rulers, in force for as long as it stands. A failed
// delete is reported.
class RulerFont {
public:
    explicit RulerFont(HDC device);
    RulerFont(const RulerFont &) = delete;
    RulerFont &operator=(const RulerFont &) = delete;
    ~RulerFont();

private:
    HDC device_;
    HFONT made_;
    HGDIOBJ before_;
};

} // namespace tessarine
