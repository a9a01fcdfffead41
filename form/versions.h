// How forms of older versions are brought up to date.
#pragma once

#include "state/session.h"

namespace tessarine {

constexpr int VERSION_EXTRA_BYTES = 0;      // every field row is followed by 4 bytes to drop
constexpr int LAST_VERSION_23_SECTIONS = 1; // up to here Detail Section 2 to 9 did not exist

// Reads the sections as this form's version holds them and renumbers what refers to them.
// Failures are fatal with code 36.
void ReadSections(Session *session, HANDLE file);
void ReadFields(Session *session, HANDLE file);

} // namespace tessarine
