// The sample text that stands for a field's value in the designer.
#pragma once

#include "state/session.h"

namespace tessarine {

// At most 300 characters go to buffer; width in form units, 0 for no limit. Returns 1.
int CreateFieldLabel(Session *session, int field, char *buffer, int width, int font);
int GetFieldSize(Session *session, int field, int font, int32_t *height, int32_t *width);

} // namespace tessarine
