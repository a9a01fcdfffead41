// What the hosts of the bench share.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tessarine.h"

// The row into which the host writes the field.
inline FieldRecord *Row(const RepParams &run, const char *name) {
    for (int row = 0; row < run.FieldTotal; ++row)
        if (run.FieldTable[row].InUse && run.FieldTable[row].FieldKind == FIELD_DATA &&
            !std::strcmp(run.FieldTable[row].FieldName, name) &&
            !(run.FieldTable[row].FieldFlags & FIELD_SHARED))
            return &run.FieldTable[row];
    std::fprintf(stderr, "bench: the form has no field %s\n", name);
    std::exit(1);
}

// Ends the program at a code of the library other than 0.
inline void Check(int code) {
    if (!code) return;
    std::fprintf(stderr, "bench: code %d\n", code);
    std::exit(1);
}
