#include "designer/designer_state.h"

#include "frame/fatal_error.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

constexpr int IDLE = -1;
constexpr int GRID_SIZE = 12; // form units

void DropDesigner(Session *session) {
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
    session->designer->PendingCommand = IDLE;
    session->designer->SnapToGrid = 1;
    session->designer->GridSize = GRID_SIZE;
}

} // namespace tessarine
