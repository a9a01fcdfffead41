// The one road out of a failure that can't be handled where it occurs.
//
// FatalError throws; the entry points catch and return the code. A routine that the system calls
// back wraps its body in Guarded, since nothing may unwind through a system frame, and whoever
// made the system call calls RaisePending right after it. What nobody raised the entry point
// settles at its return.
#pragma once

#include <new>

#include "frame/float_state.h"
#include "state/session.h"

namespace tessarine {

struct Unwinding {};

// Shows the message under "Fatal Error" ("Warning" when the code is 20; nothing when it is
// empty), stores the code and unwinds. Also the road of a cancelled run: empty text, code 5.
[[noreturn]] void FatalError(Session *session, const char *message, int code);

// The same with one "%s" in the message, composed in TextBuffer.
[[noreturn]] void FatalErrorWith(Session *session, const char *format, const char *insert,
                                 int code);

// Goes on unwinding when a callback left a failure pending; otherwise does nothing.
void RaisePending(const Session *session);

// What FatalError leaves behind when the language's own memory has run out.
void NoteLackOfMemory(Session *session);

// Runs body at a callback's boundary. A failure leaves the session's PendingFailure set (only
// while an entry point is on the stack to take it) and gives the fallback value.
template <typename Result, typename Body>
Result Guarded(Session *session, Result fallback, Body body) {
    const OwnFloatState own;
    try {
        return body();
    } catch (const Unwinding &) {
    } catch (const std::bad_alloc &) {
        NoteLackOfMemory(session);
    }
    if (session->UnwindPoint > 0) session->PendingFailure = 1;
    return fallback;
}

} // namespace tessarine
