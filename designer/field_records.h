// The rows of new fields.
#pragma once

#include "state/session.h"

namespace tessarine {

// A row that is in use from here on, with a field's defaults, or NO_SLOT after a message. So
// nothing else takes it while the field is still being chosen: expressions take rows too.
int TakeFieldRow(Session *session);

FieldRecord DefaultField(const Session *session);
FieldRecord CalculationField(const Session *session, const char *description);
FieldRecord SystemField(const Session *session, int index); // of the system's table
FieldRecord UserField(const Session *session, int row);     // of the user field table

} // namespace tessarine
