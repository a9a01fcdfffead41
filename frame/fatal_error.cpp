#include "frame/fatal_error.h"

#include <cstdio>

#include "frame/message_box.h"

namespace tessarine {

void FatalError(Session *session, const char *message, int code) {
    if (*message) ShowBox(nullptr, message, code == CODE_WARNING ? "Warning" : "Fatal Error");
    session->ErrorCode = code;
    throw Unwinding{session};
}

void FatalErrorWith(Session *session, const char *format, const char *insert, int code) {
    std::snprintf(session->TextBuffer, sizeof session->TextBuffer, format, insert);
    FatalError(session, session->TextBuffer, code);
}

void RaisePending(Session *session) {
    if (!session->PendingFailure) return;
    session->PendingFailure = 0;
    throw Unwinding{session};
}

} // namespace tessarine
