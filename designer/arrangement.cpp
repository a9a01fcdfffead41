#include "designer/arrangement.h"

#include "designer/canvas_paint.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/undo.h"
#include "form/modified.h"

namespace tessarine {

bool BeginArrangement(Session *session) {
    if (!IsGroupSelected(session)) return false;
    SaveUndo(session);
    // Behind the box of an image that found no memory anything may be selected.
    if (session->State == STATE_ENDING || !IsGroupSelected(session)) return false;
    HideFocus(session); // every item that is placed takes its rectangle
    MarkGroup(session);
    return true;
}

void EndArrangement(Session *session) {
    session->form.SelectedItem = GroupRow(session);
    SetModified(session, 1);
    RepaintCanvas(session);
}

} // namespace tessarine
