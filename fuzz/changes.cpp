#include "fuzz/changes.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr uint32_t limits[] = {0,     1,      2,      3,          0x7F,       0x80,      0xFF,
                               0x100, 0x7FFF, 0x8000, 0xFFFE,     0xFFFF,     0x10000,   0x7FFFFFFF,
                               1000,  1001,   1002,   0x80000000, 0xFFFFFFFF, 0x10000001};

size_t Place(Random *random, const std::string &text) { return random->Below(text.size() + 1); }

void ChangeOnce(Random *random, std::string *bytes) {
    const size_t place = Place(random, *bytes);
    const size_t length =
        std::min(random->Below(random->OneIn(4) ? 400 : 9), bytes->size() - place);
    switch (random->Below(7)) {
    case 0:
        if (place < bytes->size()) (*bytes)[place] ^= static_cast<char>(1 << random->Below(8));
        break;
    case 1:
        if (place < bytes->size()) (*bytes)[place] = static_cast<char>(random->Next());
        break;
    case 2: bytes->erase(place, length); break;
    case 3: bytes->insert(place, bytes->substr(place, length)); break;
    case 4: bytes->insert(place, length, static_cast<char>(random->Next())); break;
    case 5:
        if (random->OneIn(4)) bytes->resize(place);
        break;
    default: {
        const uint32_t number = OddNumber(random);
        const size_t size = random->OneIn(2) ? 4 : 2;
        const size_t even = place & ~size_t{1};
        if (even + size <= bytes->size()) std::memcpy(bytes->data() + even, &number, size);
    }
    }
}

} // namespace

uint32_t OddNumber(Random *random) {
    switch (random->Below(5)) {
    case 0: return random->Of(limits);
    case 1: return static_cast<uint32_t>(random->Between(-3, 40));
    case 2: return static_cast<uint32_t>(random->Between(0, 600)); // rows and operators
    case 3: return static_cast<uint32_t>(random->Between(-3000, 3000));
    default: return random->Next();
    }
}

std::string ChangedBytes(Random *random, std::string bytes) {
    for (size_t times = size_t{1} << random->Below(4); times > 0; --times)
        ChangeOnce(random, &bytes);
    return bytes;
}

std::string ChangedText(Random *random, std::string text, std::span<const char *const> words) {
    for (size_t times = size_t{1} << random->Below(4); times > 0; --times) {
        const size_t place = Place(random, text);
        const size_t length = std::min(random->Below(12), text.size() - place);
        const std::string word = random->Of(words);
        switch (random->Below(8)) {
        case 0: text.erase(place, length); break;
        case 1: text.insert(place, text.substr(Place(random, text), length)); break;
        case 2: text.replace(place, length, word); break;
        case 3: ChangeOnce(random, &text); break;
        case 4:
            for (size_t repeat = random->Below(130); repeat > 0; --repeat) text.insert(place, word);
            break;
        default: text.insert(place, word); break;
        }
    }
    return text;
}
