#include "run/message_pump.h"

#include "frame/fatal_error.h"
#include "frame/float_state.h"

namespace tessarine {

void PumpMessages(Session *session) {
    const OwnFloatState own; // windows may leave the floating point units as they like
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) { // for the host's own loop
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!TranslateAcceleratorA(session->Window, session->Desk.AccelTable, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        RaisePending(session);
        if (session->report.CancelState == CANCEL_STOP) break;
    }
    if (session->report.CancelState == CANCEL_STOP && session->report.RunPhase == PHASE_RECORDS)
        FatalError(session, "", CODE_CANCELLED);
}

} // namespace tessarine
