// Data fields are the host's: it knows them by name.
#pragma once

#include "state/session.h"

namespace tessarine {

// Offers the record to the host's CheckFieldProc, which looks up its name and fills it in. True
// when the host knows the field and what it filled in can stand in a form: texts are ended, a width
// below 0 is refused and stays as it was, and what is the library's own stays in any case.
bool AskHostForField(const Session *session, FieldRecord *record);

} // namespace tessarine
