// The case rules of text fields.
#pragma once

#include "state/session.h"

namespace tessarine {

void FormatText(FieldRecord *record); // changes TextValue in place

} // namespace tessarine
