// Opening a form: reading the file, binding its printer, making its fonts.
#pragma once

#include "state/session.h"

namespace tessarine {

int OpenForm(Session *session, char *path); // 1 when a form stands in the session, else 0

} // namespace tessarine
