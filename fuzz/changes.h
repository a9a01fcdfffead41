// How inputs become other inputs.
#pragma once

#include <span>
#include <string>

#include "fuzz/random.h"

// A number of 16 or 32 bits that programs stumble over: limits, small ones, cells of expressions.
uint32_t OddNumber(Random *random);

// Bytes turned, put in, taken out, doubled and cut off, and 16 or 32 bits made an odd number.
std::string ChangedBytes(Random *random, std::string bytes);

// Words put in, taken out, exchanged, repeated; now and then a byte.
std::string ChangedText(Random *random, std::string text, std::span<const char *const> words);

// A record with one or two odd numbers at even offsets; half of the time below `hot`.
template <typename Record> void ChangeRecord(Random *random, Record *record, size_t hot) {
    auto *bytes = reinterpret_cast<char *>(record);
    for (int times = random->Between(1, 2); times > 0; --times) {
        const size_t reach = random->OneIn(2) ? hot : sizeof *record;
        const size_t place = random->Below(reach / 2) * 2;
        const uint32_t number = OddNumber(random);
        const size_t size = random->OneIn(4) && place + 4 <= sizeof *record ? 4 : 2;
        __builtin_memcpy(bytes + place, &number, size);
    }
}
