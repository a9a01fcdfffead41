// Whether what was read from a form file can be worked with: rows named by other rows exist,
// lists and texts end inside their fields.
#pragma once

#include "state/session.h"

namespace tessarine {

bool CountsFit(const FormHeader &header);
// Items, fields, breaks and sections against each other.
bool TablesAgree(const Session *session);
// The user fields against the fields that were read before them.
bool UserFieldsFit(const Session *session);

// Inches that form units can hold.
bool IsMeasure(float inches);

} // namespace tessarine
