// What a host may leave in its process, and the library mustn't notice.
#pragma once

#include <xmmintrin.h>

#include <clocale>

// A comma before the decimals, and letters and digits above 127.
class HostLocale {
public:
    HostLocale() : set_(std::setlocale(LC_ALL, "German") != nullptr) {}
    ~HostLocale() { std::setlocale(LC_ALL, "C"); }
    HostLocale(const HostLocale &) = delete;
    HostLocale &operator=(const HostLocale &) = delete;

    bool Set() const { return set_; }

private:
    bool set_;
};

// Sums that are rounded up, tiny numbers that count as zero, and in the old unit 24 bits that are
// rounded down.
class HostFloatState {
public:
    HostFloatState() {
        _mm_setcsr(SSE);
        asm volatile("fldcw %0" : : "m"(OLD_UNIT));
    }
    ~HostFloatState() {
        _mm_setcsr(0x1F80);
        asm volatile("fninit");
    }
    HostFloatState(const HostFloatState &) = delete;
    HostFloatState &operator=(const HostFloatState &) = delete;

    static bool Stands() {
        unsigned short old_unit = 0;
        asm volatile("fnstcw %0" : "=m"(old_unit));
        return (_mm_getcsr() & ~FLAGS) == SSE && old_unit == OLD_UNIT;
    }

private:
    static constexpr unsigned SSE = 0xDFC0;
    static constexpr unsigned FLAGS = 0x3F; // what has happened in the unit so far
    static constexpr unsigned short OLD_UNIT = 0x047F;
};
