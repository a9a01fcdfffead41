// How an exported function comes in: which sessions it takes, and what a failure becomes.
#pragma once

#include <algorithm>
#include <initializer_list>

#include "frame/boundary.h"
#include "frame/session_table.h"

namespace tessarine::entry {

// False before a session has its tables and its printer, and once it is ending.
inline bool IsOpen(const Session *session) {
    return session && SessionStands(session) && session->form.TablesAllocated &&
           session->printer.DevMode && session->State != STATE_ENDING;
}

// A failure shows its message, leaves its code in the session and gives the fallback.
template <typename Result, typename Body>
Result Enter(bool allowed, Session *session, Result fallback, Body body) {
    if (!allowed) return fallback;
    return AtEntry(
        session, [&] { return Result{body()}; }, [&] { return fallback; });
}

// A routine on a session of any kind.
template <typename Result, typename Body>
Result OnSession(Session *session, Result fallback, Body body) {
    return Enter(IsOpen(session), session, fallback, body);
}

// A routine that works on a form. A run has made something else of its form.
template <typename Result, typename Body>
Result OnForm(Session *session, Result fallback, Body body) {
    const bool form = IsOpen(session) && session->State == STATE_FORM_OPEN;
    return Enter(form, session, fallback, body);
}

// The session, unless the host left out what the routine reads or writes.
inline Session *With(Session *session, std::initializer_list<const void *> needed) {
    const bool all = std::find(needed.begin(), needed.end(), nullptr) == needed.end();
    return all ? session : nullptr;
}

} // namespace tessarine::entry
