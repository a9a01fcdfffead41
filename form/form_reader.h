// Reading a form file into the session's tables.
#pragma once

#include "state/session.h"

namespace tessarine {

enum class FormRead {
    Done,     // a form stands in the session
    Refused,  // nothing was read: an unfit header or the wrong kind of form
    Unopened, // the file can't be opened; the message was shown, the session is to be closed
};

// Reads every block of the file, up to the live counters: header, items, fields, breaks,
// sections, user fields, fonts and pictures; settles the lock and tells the host its words.
// The wait cursor shows from then on. Damaged blocks are fatal with their own codes, and so, with
// code 33, is a row that names what isn't there; the session has no form then.
FormRead ReadFormFile(Session *session, char *path);

// Looks at the leading record alone. False, after the system's own message when the file can't be
// opened, or silently when it is no form.
bool PeekFormHeader(Session *session, const char *path, FormHeader *header);

// Adds up the references of all expressions to shared fields, after data fields were offered to
// the host.
void CountAllReferences(Session *session);

} // namespace tessarine
