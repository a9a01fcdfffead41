// What a session has learned of its fonts on the measuring context.
#pragma once

#include <cstdint>

namespace tessarine {

// Of one font row; 0 is not yet known.
struct TextMeasures {
    int32_t Height;         // form units
    uint16_t Advances[256]; // device pixels; 65535 for a character that has no whole number
};

} // namespace tessarine
