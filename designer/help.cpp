#include "designer/help.h"

#include "designer/designer_state.h"

namespace tessarine {

void ShowHelpIndex(Session *session) {
    WinHelpA(session->Window, session->dialog.HelpFile, HELP_INDEX, 0);
}

void ShowHelpOn(Session *session, WPARAM context) {
    WinHelpA(session->Window, session->dialog.HelpFile, HELP_CONTEXT, context);
}

void AskForHelpInMenu(Session *session) {
    if (GetKeyState(VK_F1) >= 0) return;
    session->designer->HelpPending = 1;
    PostMessageA(session->Window, WM_KEYDOWN, VK_RETURN, 0);
}

} // namespace tessarine
