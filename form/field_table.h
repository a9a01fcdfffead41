// The rows of the field table: slots, references, release.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int NO_SLOT = 1002;

int NewFieldSlot(Session *session); // a free row, or NO_SLOT
void FreeFieldSlot(Session *session, int row);
void ReleaseField(Session *session, int row);
int ReleaseSymbols(Session *session, const Cell *cells); // 1
void CountReferences(Session *session, const Cell *cells);
int FindSharedField(const Session *session, const FieldRecord *record); // the row or -1

} // namespace tessarine
