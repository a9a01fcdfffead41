// Cut, copy and paste inside one designer window. The system's clipboard only carries a marker.
#pragma once

#include "state/session.h"

namespace tessarine {

void CopyItems(Session *session, int cut);
void ClearClip(Session *session);
void BeginPaste(Session *session);
void PlacePaste(Session *session);

} // namespace tessarine
