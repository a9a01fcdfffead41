#include "tests/support/failing_call.h"

#include <cstdlib>
#include <cstring>

namespace {

template <typename Record> Record *At(BYTE *base, DWORD offset) {
    return reinterpret_cast<Record *>(base + offset);
}

} // namespace

void **ImportSlot(HMODULE module, const char *name) {
    auto *base = reinterpret_cast<BYTE *>(module);
    const auto *headers = At<IMAGE_NT_HEADERS>(base, At<IMAGE_DOS_HEADER>(base, 0)->e_lfanew);
    const DWORD table =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto *row = At<IMAGE_IMPORT_DESCRIPTOR>(base, table); row->Name; ++row) {
        const auto *names = At<IMAGE_THUNK_DATA>(base, row->OriginalFirstThunk);
        auto *slots = At<IMAGE_THUNK_DATA>(base, row->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto *import = At<IMAGE_IMPORT_BY_NAME>(base, names->u1.AddressOfData);
            if (!std::strcmp(import->Name, name)) return reinterpret_cast<void **>(slots);
        }
    }
    return nullptr;
}

void *ReplaceImport(const char *name, void *routine) {
    void **slot = ImportSlot(GetModuleHandleA(nullptr), name);
    if (!slot) std::abort(); // the library doesn't call it at all
    return ReplaceImport(slot, routine);
}

void *ReplaceImport(void **slot, void *routine) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    void *before = *slot;
    *slot = routine;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    return before;
}
