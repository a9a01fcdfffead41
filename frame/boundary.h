// The boundary of the library: how a call of the host comes in, and how it leaves.
//
// No exception goes past an entry point. A failure below it becomes its result, a failure that a
// callback left behind is settled at its return, and a session whose end is wanted is released when
// the last entry point and the last message that work on it are done.
#pragma once

#include <new>
#include <utility>

#include "frame/fatal_error.h"
#include "frame/float_state.h"

namespace tessarine {

// Marks the session as ending: no host's call reaches it any more, and it is released as soon as
// nothing on the stack works on it.
void WantEnd(Session *session);

// Releases the session if its end is wanted and nothing works on it. It may not exist afterwards.
void ReleaseIfDue(Session *session);

// While one stands the session is inside an entry point, and is not released; the host's state of
// the floating point units is put aside.
class InEntryPoint {
public:
    explicit InEntryPoint(Session *session)
        : session_(session), outer_failure_(std::exchange(session->PendingFailure, 0U)) {
        ++session_->UnwindPoint;
    }
    InEntryPoint(const InEntryPoint &) = delete;
    InEntryPoint &operator=(const InEntryPoint &) = delete;
    ~InEntryPoint() {
        session_->PendingFailure = outer_failure_;
        --session_->UnwindPoint;
        ReleaseIfDue(session_);
    }

private:
    const OwnFloatState own_;
    Session *session_;
    uint32_t outer_failure_; // of the call further out, which settles it itself
};

// While one stands the session is inside a message of its window, and is not released.
class InMessage {
public:
    explicit InMessage(Session *session) : session_(session) { ++session_->MessagesInHand; }
    InMessage(const InMessage &) = delete;
    InMessage &operator=(const InMessage &) = delete;
    ~InMessage() {
        --session_->MessagesInHand;
        ReleaseIfDue(session_);
    }

private:
    Session *session_;
};

// Runs body as an entry point of the session: a failure below it, also of memory, comes back as the
// result of onFailure(), with its code in the session and the session still open.
template <typename Body, typename OnFailure>
auto AtEntry(Session *session, Body body, OnFailure onFailure) -> decltype(body()) {
    const InEntryPoint inside(session);
    try {
        auto result = body();
        RaisePending(session);
        return result;
    } catch (const Unwinding &) {
    } catch (const std::bad_alloc &) {
        NoteLackOfMemory(session);
    }
    return onFailure();
}

} // namespace tessarine
