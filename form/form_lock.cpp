#include "form/form_lock.h"

#include "frame/owned.h"

namespace tessarine {

// A session is all zero until its variables have their start state.
void ReleaseLock(Session *session) {
    HANDLE &lock = session->form.FormLock;
    if (lock) CloseFileHandle(lock);
    lock = INVALID_HANDLE_VALUE;
}

} // namespace tessarine
