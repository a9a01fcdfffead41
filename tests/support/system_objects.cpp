#include "tests/support/system_objects.h"

#include <cstdint>

#include "state/windows.h"

namespace {

constexpr size_t TABLE_IN_PROCESS_BLOCK = 0x94;
constexpr int TABLE_ROWS = 65536;

// A row of the table that the system keeps in the process.
struct HandleRow {
    uint64_t object;
    uint16_t owner[2];
    uint16_t unique;
    uint8_t type; // 0 when the row is free
    uint8_t flags;
    uint64_t user_object;
};
static_assert(sizeof(HandleRow) == 24);

} // namespace

int CountGdiObjects() {
    const BYTE *process = nullptr;
    asm("movl %%fs:0x30, %0" : "=r"(process)); // the thread's block points to the process's
    const auto *rows =
        *reinterpret_cast<const HandleRow *const *>(process + TABLE_IN_PROCESS_BLOCK);
    int count = 0;
    for (int row = 0; row < TABLE_ROWS; ++row) count += rows[row].type ? 1 : 0;
    return count;
}

int CountUserObjects() {
    constexpr UINT_PTR FIRST = 0x20; // handles count up by twos, and free ones are given out first
    constexpr UINT_PTR LAST = 0x2000;
    int count = 0;
    for (UINT_PTR handle = FIRST; handle <= LAST; handle += 2) {
        DWORD owner = 0;
        if (IsMenu(reinterpret_cast<HMENU>(handle)) ||
            (GetWindowThreadProcessId(reinterpret_cast<HWND>(handle), &owner) &&
             owner == GetCurrentProcessId()))
            ++count;
    }
    return count;
}
