#include "fuzz/guarded_heap.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "fuzz/watch.h"
#include "tests/support/failing_call.h"

namespace {

constexpr size_t PAGE = 4096;
constexpr size_t PAGES = 0x20000; // of address space: 512 MB
constexpr size_t CLASSES = 64;    // sizes that are kept apart when they are free
constexpr size_t RESTING = 16;    // freed blocks of a size that stay untouchable
constexpr unsigned char FRESH = 0xA5;

struct Run { // pages of a block, at the place of its first
    uint32_t pages;
    uint32_t size; // of the block
    bool live;
    uint32_t next; // the next free one of its class
};

struct FreeList {
    uint32_t first = 0;
    uint32_t last = 0;
    size_t count = 0;
};

Run runs[PAGES];
FreeList free_lists[CLASSES];
char *arena = nullptr;
uint32_t used = 1; // pages of the arena; 0 is no place
std::atomic_flag busy = ATOMIC_FLAG_INIT;

struct Turn { // the allocator has one caller at a time
    Turn() {
        while (busy.test_and_set()) Sleep(0);
    }
    ~Turn() { busy.clear(); }
};

size_t Padded(size_t size) { return (std::max<size_t>(size, 1) + 3) & ~size_t{3}; }

// Large blocks are rounded up to an eighth of their power of two, so that few classes serve all.
uint32_t ClassOf(size_t *pages) {
    if (*pages <= 16) return static_cast<uint32_t>(*pages);
    uint32_t number = 16;
    for (size_t limit = 16;; limit *= 2)
        for (size_t step = 1; step <= 4; ++step) {
            const size_t size = limit + limit * step / 4;
            if (++number >= CLASSES - 1 || *pages <= size) {
                *pages = std::max(*pages, size);
                return number;
            }
        }
}

char *PlaceOf(uint32_t at) { return arena + at * PAGE; }

char *BlockOf(uint32_t at) { return PlaceOf(at) + runs[at].pages * PAGE - Padded(runs[at].size); }

// The run whose block begins there, 0 when it is none of ours.
uint32_t RunAt(const void *block) {
    const auto *place = static_cast<const char *>(block);
    if (!arena || place < arena || place >= arena + PAGES * PAGE) return 0;
    auto at = static_cast<uint32_t>(static_cast<size_t>(place - arena) / PAGE);
    while (at && !runs[at].pages) --at;
    return at;
}

uint32_t FreshRun(size_t pages) {
    if (!arena)
        arena =
            static_cast<char *>(VirtualAlloc(nullptr, PAGES * PAGE, MEM_RESERVE, PAGE_NOACCESS));
    if (!arena || used + pages + 1 > PAGES) return 0;
    if (!VirtualAlloc(PlaceOf(used), pages * PAGE, MEM_COMMIT, PAGE_READWRITE)) return 0;
    const uint32_t at = used;
    runs[at].pages = static_cast<uint32_t>(pages);
    used += static_cast<uint32_t>(pages) + 1; // the page behind stays untouchable
    return at;
}

uint32_t RestedRun(FreeList *list, size_t resting) {
    if (list->count <= resting) return 0;
    const uint32_t at = list->first;
    list->first = runs[at].next;
    --list->count;
    DWORD before = 0;
    VirtualProtect(PlaceOf(at), runs[at].pages * PAGE, PAGE_READWRITE, &before);
    return at;
}

void *Take(size_t size) {
    const Turn turn;
    size_t pages = (Padded(size) + PAGE - 1) / PAGE;
    if (pages > PAGES / 2) return nullptr;
    FreeList *list = &free_lists[ClassOf(&pages)];
    uint32_t at = RestedRun(list, RESTING);
    if (at && runs[at].pages < pages) at = 0; // of the class of the largest
    if (!at) at = FreshRun(pages);
    if (!at) return nullptr;
    runs[at].size = static_cast<uint32_t>(size);
    runs[at].live = true;
    std::memset(BlockOf(at), FRESH, Padded(size));
    return BlockOf(at);
}

void Release(uint32_t at, const void *block) {
    const Turn turn;
    if (!runs[at].live || BlockOf(at) != block) TellAndEnd("a block is freed that isn't one");
    for (size_t byte = runs[at].size; byte < Padded(runs[at].size); ++byte)
        if (static_cast<unsigned char>(BlockOf(at)[byte]) != FRESH)
            TellAndEnd("something was written past the end of a block");
    runs[at].live = false;
    runs[at].next = 0;
    DWORD before = 0;
    VirtualProtect(PlaceOf(at), runs[at].pages * PAGE, PAGE_NOACCESS, &before);
    size_t pages = runs[at].pages;
    FreeList *list = &free_lists[ClassOf(&pages)];
    (list->count ? runs[list->last].next : list->first) = at;
    list->last = at;
    ++list->count;
}

void *Resize(uint32_t at, void *block, size_t size) {
    void *grown = Take(size);
    if (!grown) return nullptr;
    std::memcpy(grown, block, std::min<size_t>(size, runs[at].size));
    Release(at, block);
    return grown;
}

// ---- what stands in place of the imports -------------------------------------------------------

void *Malloc(size_t size) { return Take(size); }

void *Calloc(size_t count, size_t size) {
    if (size && count > SIZE_MAX / size) return nullptr;
    void *block = Take(count * size);
    if (block) std::memset(block, 0, count * size);
    return block;
}

void (*real_free)(void *) = nullptr;
void *(*real_realloc)(void *, size_t) = nullptr;

void Free(void *block) {
    if (const uint32_t at = RunAt(block))
        Release(at, block);
    else
        real_free(block);
}

void *Realloc(void *block, size_t size) {
    if (!block) return Take(size);
    const uint32_t at = RunAt(block);
    return at ? Resize(at, block, size) : real_realloc(block, size);
}

HGLOBAL WINAPI GuardedGlobalAlloc(UINT flags, SIZE_T size) {
    void *block = Take(size);
    if (block && (flags & GMEM_ZEROINIT)) std::memset(block, 0, size);
    return block;
}

HGLOBAL WINAPI GuardedGlobalReAlloc(HGLOBAL handle, SIZE_T size, UINT flags) {
    const uint32_t at = RunAt(handle);
    return at ? Resize(at, handle, size) : GlobalReAlloc(handle, size, flags);
}

HGLOBAL WINAPI GuardedGlobalFree(HGLOBAL handle) {
    const uint32_t at = RunAt(handle);
    if (!at) return GlobalFree(handle);
    Release(at, handle);
    return nullptr;
}

LPVOID WINAPI GuardedGlobalLock(HGLOBAL handle) {
    return RunAt(handle) ? handle : GlobalLock(handle);
}
BOOL WINAPI GuardedGlobalUnlock(HGLOBAL handle) {
    return RunAt(handle) ? TRUE : GlobalUnlock(handle);
}
HGLOBAL WINAPI GuardedGlobalHandle(LPCVOID block) {
    return RunAt(block) ? const_cast<void *>(block) : GlobalHandle(block);
}
SIZE_T WINAPI GuardedGlobalSize(HGLOBAL handle) {
    const uint32_t at = RunAt(handle);
    return at ? runs[at].size : GlobalSize(handle);
}

void *Replace(HMODULE module, const char *name, void *routine) {
    void **slot = ImportSlot(module, name);
    return slot ? ReplaceImport(slot, routine) : nullptr;
}

template <typename Routine> void *Address(Routine *routine) {
    return reinterpret_cast<void *>(routine);
}

} // namespace

void GuardHeapOf(HMODULE module) {
    const HMODULE runtime = GetModuleHandleA("msvcrt.dll");
    real_free = reinterpret_cast<void (*)(void *)>(
        reinterpret_cast<void *>(GetProcAddress(runtime, "free")));
    real_realloc = reinterpret_cast<void *(*)(void *, size_t)>(
        reinterpret_cast<void *>(GetProcAddress(runtime, "realloc")));
    Replace(module, "malloc", Address(Malloc));
    Replace(module, "calloc", Address(Calloc));
    Replace(module, "realloc", Address(Realloc));
    Replace(module, "free", Address(Free));
    Replace(module, "GlobalAlloc", Address(GuardedGlobalAlloc));
    Replace(module, "GlobalReAlloc", Address(GuardedGlobalReAlloc));
    Replace(module, "GlobalFree", Address(GuardedGlobalFree));
    Replace(module, "GlobalLock", Address(GuardedGlobalLock));
    Replace(module, "GlobalUnlock", Address(GuardedGlobalUnlock));
    Replace(module, "GlobalHandle", Address(GuardedGlobalHandle));
    Replace(module, "GlobalSize", Address(GuardedGlobalSize));
}

void *GuardedBlock(size_t size) { return Take(size); }
void FreeGuardedBlock(void *block) { Release(RunAt(block), block); }
