// Allocation with a message on failure.
// Every allocator adds one byte to the size, shows its own message box on failure and returns null.
#pragma once

#include <cstddef>

#include "state/windows.h"

namespace tessarine {

// A movable block, locked; the handle can be had from the pointer, so that a host and the library
// can free each other's blocks. The memory isn't cleared.
void *OurAlloc(size_t size);
void *OurRealloc(void *memory, size_t size);
int OurFree(void *memory); // 0, also for null

HGLOBAL sAlloc(size_t size);
HGLOBAL sReAlloc(HGLOBAL handle, size_t size);
void *LockHandle(HGLOBAL handle);
int UnlockHandle(HGLOBAL handle); // 1
int FreeHandle(HGLOBAL handle);   // 1

// A movable block of just this size without a message, for those who tell it in their own words.
HGLOBAL QuietAlloc(size_t size);

void *MemAlloc(size_t size);
void *MemReAlloc(void *memory, size_t size);
int MemFree(void *memory); // 1, also for null

// For tests of failure: the allocation with this number from now on fails (0: none does), and
// how many blocks of the allocators above are live.
void FailAllocation(int number);
int LiveBlocks();

} // namespace tessarine
