#include "form/form_blocks.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr size_t BLOCK_BUFFER = 300;

} // namespace

bool ReadBlock(HANDLE file, void *memory, size_t size) {
    auto *to = static_cast<char *>(memory);
    char buffer[BLOCK_BUFFER];
    while (size > 0) {
        const auto part = static_cast<DWORD>(std::min(size, BLOCK_BUFFER));
        DWORD moved = 0;
        if (!ReadFile(file, buffer, part, &moved, nullptr) || moved != part) return false;
        std::copy_n(buffer, part, to);
        to += part;
        size -= part;
    }
    return true;
}

bool WriteBlock(HANDLE file, const void *memory, size_t size) {
    const auto *from = static_cast<const char *>(memory);
    char buffer[BLOCK_BUFFER];
    while (size > 0) {
        const auto part = static_cast<DWORD>(std::min(size, BLOCK_BUFFER));
        std::copy_n(from, part, buffer);
        DWORD moved = 0;
        if (!WriteFile(file, buffer, part, &moved, nullptr) || moved != part) return false;
        from += part;
        size -= part;
    }
    return true;
}

} // namespace tessarine
