#include "frame/boundary.h"

namespace tessarine {

void WantEnd(Session *session) { session->State = STATE_ENDING; }

void ReleaseIfDue(Session *session) {
    const bool due = session->State == STATE_ENDING && session->UnwindPoint == 0 &&
                     session->MessagesInHand == 0 && session->EndSession;
    if (!due) return;
    auto *const end = session->EndSession;
    session->EndSession = nullptr; // what the release itself sends and asks comes by here again
    end(session);
}

} // namespace tessarine
