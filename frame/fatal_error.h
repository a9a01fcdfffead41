// The one road out of a failure that can't be handled where it occurs.
//
// FatalError throws; the entry points catch and return the code. A routine that the system calls
// back wraps its body in Guarded, since nothing may unwind through a system frame, and whoever
// made the system call calls RaisePending right after it.
#pragma once

#include "frame/session.h"

namespace tessarine {

struct Unwinding {
    Session *session;
};

// Shows the message under "Fatal Error" ("Warning" when the code is 20; nothing when it is
// empty), stores the code and unwinds. Also the road of a cancelled run: empty text, code 5.
[[noreturn]] void FatalError(Session *session, const char *message, int code);

// The same with one "%s" in the message, composed in TextBuffer.
[[noreturn]] void FatalErrorWith(Session *session, const char *format, const char *insert,
                                 int code);

// Goes on unwinding when a callback left a failure pending; otherwise does nothing.
void RaisePending(Session *session);

// Runs body at a callback's boundary. A failure leaves the session's PendingFailure set (only
// while an entry point is on the stack to take it) and gives the fallback value.
template <typename Result, typename Body>
Result Guarded(Session *session, Result fallback, Body body) {
    try {
        return body();
    } catch (const Unwinding &) {
        if (session->UnwindPoint > 0) session->PendingFailure = 1;
        return fallback;
    }
}

// True while the session stands in the session table.
bool SessionStands(const Session *session);

// Runs body as an entry point of a run's session: a failure below it comes back as the result of
// onFailure(), with the session still open. The body may release the session.
template <typename Body, typename OnFailure>
auto AtEntry(Session *session, Body body, OnFailure onFailure) -> decltype(body()) {
    const int depth = session->UnwindPoint;
    session->UnwindPoint = depth + 1;
    try {
        auto result = body();
        if (SessionStands(session)) session->UnwindPoint = depth;
        return result;
    } catch (const Unwinding &) {
        session->UnwindPoint = depth;
        session->PendingFailure = 0;
        return onFailure();
    }
}

} // namespace tessarine
