// The fixed tables of a session's form.
#pragma once

#include "state/session.h"

namespace tessarine {

// Makes the four fixed tables: items, fonts, fields, temporary fields. Fatal with code 3.
int AllocArrayMem(Session *session);
void FreeArrayMem(Session *session);

} // namespace tessarine
