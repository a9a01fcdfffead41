// A new form.
#pragma once

#include "state/session.h"

namespace tessarine {

int InitNewForm(Session *session); // 1; nothing in a report session

} // namespace tessarine
