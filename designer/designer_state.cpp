#include "designer/designer_state.h"

#include "designer/clipboard.h"
#include "designer/rest.h"
#include "designer/undo.h"
#include "frame/fatal_error.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

constexpr int GRID_SIZE = 12; // form units

void DropDesigner(Session *session) {
    DropUndo(session);
    ClearClip(session);
    OurFree(session->designer);
    session->designer = nullptr;
}

} // namespace

Designer &DesignerOf(Session *session) {
    if (session->designer) return *session->designer;
    session->designer = static_cast<Designer *>(OurAlloc(sizeof(Designer)));
    if (!session->designer) FatalError(session, "Ran Out of Memory", CODE_MEMORY);
    session->DropDesigner = DropDesigner;
    *session->designer = Designer{};
    ResetDesigner(session);
    return *session->designer;
}

void ResetDesigner(Session *session) {
    if (!session->designer) return;
    RestDesigner(session);
    Designer &designer = *session->designer;
    designer.PaintMode = PAINT_BORDERS;
    designer.SnapToGrid = 1;
    designer.GridSize = GRID_SIZE;
    designer.HelpPending = 0;
    ClearClip(session);
}

} // namespace tessarine
