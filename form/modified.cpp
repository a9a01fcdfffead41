#include "form/modified.h"

namespace tessarine {

void SetModified(Session *session, int modified) {
    const uint32_t state = modified ? 1 : 0;
    if (session->form.FormModified == state) return;
    session->form.FormModified = state;
    if (IsWindow(session->ParentWindow))
        SendMessageA(session->ParentWindow, state ? MESSAGE_MODIFIED : MESSAGE_UNMODIFIED, 0, 0);
}

} // namespace tessarine
