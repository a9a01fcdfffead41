// One step back over an arrangement: the item table's rows and nothing else.
#pragma once

#include "state/session.h"

namespace tessarine {

void SaveUndo(Session *session); // up to 62 rows; a larger form gets no image
void DropUndo(Session *session);
void RestoreUndo(Session *session);

} // namespace tessarine
