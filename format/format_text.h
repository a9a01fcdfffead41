// The case rules of text fields.
#pragma once

#include "frame/session.h"

namespace tessarine {

void FormatText(FieldRecord *record); // changes TextValue in place

} // namespace tessarine
