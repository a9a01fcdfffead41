// The start state of a session and of its records.
#pragma once

#include "state/session.h"

namespace tessarine {

void InitVariables(Session *session);
void SetHelpFile(Session *session); // the host's, or the library's own
ItemRecord DefaultItem(const Session *session);
void InitField(const Session *session, FieldRecord *record);
void InitSections(Session *session);

} // namespace tessarine
