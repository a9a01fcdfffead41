#include "designer/ending.h"

#include "designer/designer_state.h"
#include "device/device_properties.h"
#include "frame/boundary.h"
#include "frame/session_table.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

// While one stands the user is being asked, and isn't asked again.
class Asking {
public:
    explicit Asking(Designer *designer) : designer_(designer) { designer->CloseAsked = 1; }
    Asking(const Asking &) = delete;
    Asking &operator=(const Asking &) = delete;
    ~Asking() { designer_->CloseAsked = 0; }

private:
    Designer *designer_;
};

bool UserLetsGo(Session *session) {
    const Asking asking(session->designer);
    return SettleClose(session);
}

// The window doesn't lead to the session any more, nor the session to it.
void ForgetWindow(Session *session) {
    ReleaseScreen(session);
    SetWindowLongA(session->Window, 0, 0);
    session->Window = nullptr;
    session->device.Menu = nullptr; // goes with the window
    session->view.PaintEnabled = 0;
}

void EndForGood(Session *session) {
    ReleaseSession(session);
    FreeSession(session);
}

// The host has heard of the refusal, and nothing else will come. Its edit control answers nothing
// without a session: shown, it would ask to be painted without end.
void AbandonWindow(Session *session) {
    if (session->Desk.EditWindow) ShowWindow(session->Desk.EditWindow, SW_HIDE);
    if (session->Window) ForgetWindow(session);
    session->ParentWindow = nullptr;
    EndForGood(session);
}

} // namespace

bool CloseDesigner(Session *session) {
    if (session->designer->CloseAsked || !UserLetsGo(session)) return false;
    WantEnd(session);
    return true;
}

void ExitDesigner(Session *session) {
    if (session->designer->CloseAsked) return;
    session->EndSession = UserLetsGo(session) ? EndForGood : AbandonWindow;
    WantEnd(session);
}

void LoseWindow(Session *session) {
    ForgetWindow(session);
    session->view.WindowGone = 1;
    WantEnd(session);
}

void EndDesigner(Session *session) {
    if (!session->IgnoreMessages) ReleaseSession(session); // else its form couldn't be opened
    RetireSession(session);
}

} // namespace tessarine
