// Deleting what is selected.
#pragma once

#include "state/session.h"

namespace tessarine {

// An item, the group's members, or a section after asking.
void DeleteItem(Session *session);

} // namespace tessarine
