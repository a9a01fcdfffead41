// The commands that arrange the members of the selected group; each keeps an undo image first and
// does nothing unless the group is selected.
#pragma once

#include "state/session.h"

namespace tessarine {

void AlignTop(Session *session); // to the leftmost member's edge, as the next two
void AlignBottom(Session *session);
void AlignMiddle(Session *session);
void AlignLeft(Session *session); // to the topmost member's edge, as the next two
void AlignRight(Session *session);
void AlignCenter(Session *session);
void SpaceAcross(Session *session); // by the gap between the first two
void SpaceDown(Session *session);
void SizeEvenWidth(Session *session); // as the leftmost member
void SizeEvenHeight(Session *session);

} // namespace tessarine
