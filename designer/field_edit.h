// Editing the selected field.
#pragma once

#include "state/session.h"

namespace tessarine {

void EditSelectedField(Session *session); // its parameters, by the host's sheet
// Edits a calculation's expression and name in its row; 1 when it isn't empty, 0 also on Cancel.
int EditCalculation(Session *session, int field);
void EditFieldExpression(Session *session); // of the selected calculation field

} // namespace tessarine
