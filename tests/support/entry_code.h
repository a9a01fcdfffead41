// The code of an entry point of the library with a test's own body.
#pragma once

#include "frame/boundary.h"

template <typename Body> int EntryCode(Session *session, Body body) {
    return tessarine::AtEntry(
        session,
        [&] {
            body();
            return 0;
        },
        [&] { return session->ErrorCode; });
}
