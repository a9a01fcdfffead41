// Page, date, time and the like as field values.
#pragma once

#include "state/session.h"

namespace tessarine {

void UpdateSystemFields(Session *session); // in InputTable
void SetSystemField(Session *session, FieldRecord *row);

} // namespace tessarine
