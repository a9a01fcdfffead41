// Numbers that a seed settles, on every machine the same.
#pragma once

#include <cstddef>
#include <cstdint>

class Random {
public:
    explicit Random(uint64_t seed) : state_(seed) {}

    uint32_t Next() {
        uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return static_cast<uint32_t>((mixed ^ (mixed >> 31)) >> 16);
    }
    size_t Below(size_t limit) { return limit ? Next() % limit : 0; }
    int Between(int least, int most) {
        return least + static_cast<int>(Below(static_cast<size_t>(most - least + 1)));
    }
    bool OneIn(size_t times) { return Below(times) == 0; }
    template <typename List> const auto &Of(const List &list) {
        return *(std::begin(list) + static_cast<ptrdiff_t>(Below(std::size(list))));
    }

private:
    uint64_t state_;
};
