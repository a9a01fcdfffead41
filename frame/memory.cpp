#include "frame/memory.h"

#include <cstdlib>

#include "frame/fatal_error.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

int fail_from = 0; // the allocation that fails, counted down; 0: none
int live_blocks = 0;

bool AllocationFails() {
    if (fail_from == 0) return false;
    if (fail_from > 1) {
        --fail_from;
        return false;
    }
    return true;
}

template <typename Block> Block Allocated(Block block, const char *failure) {
    if (block)
        ++live_blocks;
    else
        ShowBox(nullptr, failure);
    return block;
}

template <typename Block> Block Resized(Block block, const char *failure) {
    if (!block) ShowBox(nullptr, failure);
    return block;
}

} // namespace

void FailAllocation(int number) { fail_from = number; }
int LiveBlocks() { return live_blocks; }

void *OurAlloc(size_t size) {
    const HGLOBAL handle = AllocationFails() ? nullptr : GlobalAlloc(GMEM_MOVEABLE, size + 1);
    void *memory = handle ? GlobalLock(handle) : nullptr;
    if (handle && !memory) GlobalFree(handle);
    return Allocated(memory, "Memory Allocation Error (OurAlloc)");
}

void *OurRealloc(void *memory, size_t size) {
    HGLOBAL handle = GlobalHandle(memory);
    GlobalUnlock(handle);
    const HGLOBAL grown =
        AllocationFails() ? nullptr : GlobalReAlloc(handle, size + 1, GMEM_MOVEABLE);
    if (!grown) GlobalLock(handle); // the old block stays as it was
    return Resized(grown ? GlobalLock(grown) : nullptr, "Memory Allocation Error (OurRealloc)");
}

int OurFree(void *memory) {
    if (!memory) return 0;
    const HGLOBAL handle = GlobalHandle(memory);
    GlobalUnlock(handle);
    GlobalFree(handle);
    --live_blocks;
    return 0;
}

HGLOBAL sAlloc(size_t size) {
    return Allocated(AllocationFails() ? nullptr : GlobalAlloc(GMEM_MOVEABLE, size + 1),
                     "Memory Allocation Error (sAlloc)");
}

HGLOBAL QuietAlloc(size_t size) {
    const HGLOBAL block = AllocationFails() ? nullptr : GlobalAlloc(GMEM_MOVEABLE, size);
    if (block) ++live_blocks;
    return block;
}

HGLOBAL sReAlloc(HGLOBAL handle, size_t size) {
    return Resized(AllocationFails() ? nullptr : GlobalReAlloc(handle, size + 1, GMEM_MOVEABLE),
                   "Memory Allocation Error (sReAlloc)");
}

void *LockHandle(HGLOBAL handle) { return handle ? GlobalLock(handle) : nullptr; }

int UnlockHandle(HGLOBAL handle) {
    GlobalUnlock(handle);
    return 1;
}

int FreeHandle(HGLOBAL handle) {
    if (handle) {
        GlobalFree(handle);
        --live_blocks;
    }
    return 1;
}

void *MemAlloc(size_t size) {
    return Allocated(AllocationFails() ? nullptr : std::malloc(size + 1),
                     "Memory Allocation Error (MemAlloc)");
}

void *MemReAlloc(void *memory, size_t size) {
    return Resized(AllocationFails() ? nullptr : std::realloc(memory, size + 1),
                   "Memory Allocation Error (MemReAlloc)");
}

int MemFree(void *memory) {
    if (memory) {
        std::free(memory);
        --live_blocks;
    }
    return 1;
}

} // namespace tessarine
