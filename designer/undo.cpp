#include "designer/undo.h"

#include <cstring>

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "frame/memory.h"

namespace tessarine {

namespace {

constexpr size_t MOST_BYTES = 32000;

size_t TableSize(const Session *session) {
    return static_cast<size_t>(session->form.TotalItems) * sizeof(ItemRecord);
}

} // namespace

void SaveUndo(Session *session) {
    DropUndo(session);
    const size_t size = TableSize(session);
    if (size > MOST_BYTES) return;
    Designer &designer = DesignerOf(session);
    designer.UndoImage = static_cast<ItemRecord *>(OurAlloc(size));
    if (!designer.UndoImage) return;
    std::memcpy(designer.UndoImage, session->form.Items, size);
    designer.UndoCount = session->form.TotalItems;
}

void DropUndo(Session *session) {
    if (!session->designer) return;
    OurFree(session->designer->UndoImage);
    session->designer->UndoImage = nullptr;
    session->designer->UndoCount = 0;
}

void RestoreUndo(Session *session) {
    const Designer &designer = DesignerOf(session);
    if (!designer.UndoImage) return;
    const bool same_rows = designer.UndoCount == session->form.TotalItems;
    if (same_rows) std::memcpy(session->form.Items, designer.UndoImage, TableSize(session));
    DropUndo(session);
    if (!same_rows) return;
    RenewBars(session, 0);
    session->form.SelectedItem = GroupRow(session);
    RepaintCanvas(session);
}

} // namespace tessarine
