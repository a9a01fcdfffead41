// The fields that a sort header sorts and breaks by.
#pragma once

#include "state/session.h"

namespace tessarine {

// The row in the break table of a sort header or footer, or -1.
int FindBreak(const Session *session, int section);
int FindSortField(const Session *session, int section); // the field's row, or -1
int EditSortField(Session *session);                    // 0: the selection is no sort header
int EditSectionBreak(Session *session);

} // namespace tessarine
