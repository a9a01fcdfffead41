// A form's sections in the shape that composition needs.
#pragma once

#include "state/session.h"

namespace tessarine {

// Gives each section its height and its items coordinates relative to the section's top; settles
// which section ends which summary. The item table is changed in place for the length of the run.
void PrepareSections(Session *session);

} // namespace tessarine
