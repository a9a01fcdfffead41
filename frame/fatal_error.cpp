#include "frame/fatal_error.h"

#include <cstdio>

#include "frame/message_box.h"

namespace tessarine {

void FatalError(Session *session, const char *message, int code) {
    if (*message) ShowBox(nullptr, message, code == CODE_WARNING ? "Warning" : "Fatal Error");
    session->ErrorCode = code;
    throw Unwinding{};
}

void FatalErrorWith(Session *session, const char *format, const char *insert, int code) {
    std::snprintf(session->TextBuffer, sizeof session->TextBuffer, format, insert);
    FatalError(session, session->TextBuffer, code);
}

void NoteLackOfMemory(Session *session) {
    ShowBox(nullptr, "Ran Out of Memory", "Fatal Error");
    session->ErrorCode = CODE_MEMORY;
}

void RaisePending(const Session *session) {
    if (session->PendingFailure) throw Unwinding{};
}

} // namespace tessarine
