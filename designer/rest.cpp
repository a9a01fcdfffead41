#include "designer/rest.h"

#include "designer/designer_state.h"
#include "designer/undo.h"

namespace tessarine {

void RestDesigner(Session *session) {
    if (!session->designer) return;
    Designer &designer = *session->designer;
    designer.PendingCommand = IDLE;
    designer.HandleCount = 0;
    designer.FocusVisible = 0;
    designer.HoverOnly = 1;
    DropUndo(session);
}

} // namespace tessarine
