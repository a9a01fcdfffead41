// Arithmetic of 32-bit whole numbers with a result for every input: sums and products wrap around.
#pragma once

#include <cstdint>

namespace tessarine {

// Truncates towards zero; what doesn't fit, and what is no number, gives -2147483648.
inline int32_t ToInt32(double value) {
    const bool fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<int32_t>(value) : INT32_MIN;
}

inline int32_t WrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

inline int32_t WrapSubtract(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

inline int32_t WrapMultiply(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

// Truncates towards zero; b isn't 0. The smallest number divided by -1 wraps to itself.
inline int32_t WrapDivide(int32_t a, int32_t b) { return b == -1 ? WrapSubtract(0, a) : a / b; }

} // namespace tessarine
