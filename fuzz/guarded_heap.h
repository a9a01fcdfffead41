// Blocks that end before a page that can't be touched, so that reading or writing past an end, or
// a block that was freed, ends the program at once.
#pragma once

#include <cstddef>

#include "state/windows.h"

// From now on a module's calls of malloc and of the global blocks get such blocks.
void GuardHeapOf(HMODULE module);

// Memory that ends before such a page; for the texts that are handed in.
void *GuardedBlock(size_t size);
void FreeGuardedBlock(void *block);
