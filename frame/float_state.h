// The state of the floating point units: rounding, precision, what traps.
#pragma once

#include <xmmintrin.h>

namespace tessarine {

// While one stands, both units round to nearest and nothing traps, whatever state the host, one of
// its routines or a driver has left. Its end brings back the state that it found.
class OwnFloatState {
public:
    OwnFloatState() : sse_(_mm_getcsr()) { // cppcheck-suppress uninitMemberVar ; the asm fills it
        asm volatile("fnstenv %0\n\tfldcw %1" : "=m"(old_unit_) : "m"(OLD_UNIT_DEFAULT) : "memory");
        _mm_setcsr(SSE_DEFAULT);
    }
    ~OwnFloatState() {
        asm volatile("fldenv %0" : : "m"(old_unit_) : "memory");
        _mm_setcsr(sse_);
    }
    OwnFloatState(const OwnFloatState &) = delete;
    OwnFloatState &operator=(const OwnFloatState &) = delete;

private:
    static constexpr unsigned SSE_DEFAULT = 0x1F80;
    static constexpr unsigned short OLD_UNIT_DEFAULT = 0x037F;

    unsigned sse_;
    unsigned char old_unit_[28]; // as fnstenv stores it
};

} // namespace tessarine
