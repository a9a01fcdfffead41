// Data fields are the host's: it knows them by name, and lets its user pick them.
#pragma once

#include "state/session.h"

namespace tessarine {

// Lets the host's user pick a field under the owner: the host fills in the record. level is the
// sort level that the field is for, from 1, or 0. True when one was picked and what the host filled
// in can stand in a form: texts are ended, a width below 0 is refused, and what is the library's
// own stays in any case. Otherwise the record is as it was. Without a PickFieldProc nothing is
// picked.
bool PickHostField(const Session *session, HWND owner, FieldRecord *record, int level);

// Offers the record to the host's CheckFieldProc, which looks up its name and fills it in. True
// when the host knows the field and what it filled in can stand in a form, as above; otherwise it
// keeps what the host left in it, but a width below 0.
bool CheckHostField(const Session *session, HWND owner, FieldRecord *record, int level);

// The same over the session's window, of a field that sorts nothing.
bool AskHostForField(const Session *session, FieldRecord *record);

} // namespace tessarine
