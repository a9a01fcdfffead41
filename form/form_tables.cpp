#include "form/form_tables.h"

#include "frame/fatal_error.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

struct TableRow {
    HGLOBAL FormState::*handle;
    size_t size;
};

constexpr TableRow tables[] = {
    {&FormState::ItemMemory, (MAX_ITEMS + 1) * sizeof(ItemRecord)},
    {&FormState::FontMemory, MAX_FONTS * sizeof(FontEntry)},
    {&FormState::FieldMemory, (MAX_FIELDS + 1) * sizeof(FieldRecord)},
    {&FormState::TempFieldMemory, (MAX_TEMP_FIELDS + 1) * sizeof(FieldRecord)},
};

void TakeTablePointers(FormState &form) {
    form.Items = static_cast<ItemRecord *>(LockHandle(form.ItemMemory));
    form.Fonts = static_cast<FontEntry *>(LockHandle(form.FontMemory));
    form.Fields = static_cast<FieldRecord *>(LockHandle(form.FieldMemory));
    form.TempFld = static_cast<FieldRecord *>(LockHandle(form.TempFieldMemory));
}

} // namespace

int AllocArrayMem(Session *session) {
    FreeArrayMem(session);
    FormState &form = session->form;
    for (const TableRow &table : tables) {
        HGLOBAL &handle = form.*table.handle;
        handle = sAlloc(table.size);
        void *memory = LockHandle(handle);
        if (!memory) FatalError(session, "Ran Out of Memory (AllocArrayMem)", CODE_MEMORY);
        ZeroMemory(memory, table.size);
        UnlockHandle(handle);
    }
    TakeTablePointers(form);
    form.TablesAllocated = 1;
    form.FieldCapacity = MAX_FIELDS;
    return 1;
}

void FreeArrayMem(Session *session) {
    FormState &form = session->form;
    for (const TableRow &table : tables) {
        HGLOBAL &handle = form.*table.handle;
        if (!handle) continue;
        UnlockHandle(handle);
        FreeHandle(handle);
        handle = nullptr;
    }
    form.Items = nullptr;
    form.Fonts = nullptr;
    form.Fields = nullptr;
    form.TempFld = nullptr;
    form.TablesAllocated = 0;
    form.FieldCapacity = 0;
}

} // namespace tessarine
