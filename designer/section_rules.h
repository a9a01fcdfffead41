// Which sections may come into a form, and which may go.
//
// Kept by these rules: the detail sections in use have no gap, a sort footer stands beside its
// header alone, and sort headers go in the reverse of the order in which they came, so that the
// last row of the break table is always the one that goes.
#pragma once

#include "state/form_state.h"

namespace tessarine {

// Whether the row can be switched on; sort headers only while sorting is allowed.
bool MayAdd(const FormState &form, int section, bool sorting);
// Why the row can't be switched off, or null when it can.
const char *WhyItStays(const FormState &form, int section);

} // namespace tessarine
