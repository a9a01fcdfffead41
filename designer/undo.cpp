#include "designer/undo.h"

#include <algorithm>
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

// Whether two rows name the same of the other tables: a section's bar, a field, a font or picture.
bool NameTheSame(const ItemRecord &a, const ItemRecord &b) {
    return a.ItemType == b.ItemType && a.FontIndex == b.FontIndex &&
           (a.ItemType != ITEM_BAR || a.SectionIndex == b.SectionIndex) &&
           (a.ItemType != ITEM_FIELD || a.FieldIndex == b.FieldIndex);
}

// As many rows may have gone as came: those would come back without what was released with them.
bool ImageFits(const Designer &designer, const FormState &form) {
    return designer.UndoCount == form.TotalItems &&
           std::is_permutation(form.Items, form.Items + form.TotalItems, designer.UndoImage,
                               NameTheSame);
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
    const bool fits = ImageFits(designer, session->form);
    if (fits) std::memcpy(session->form.Items, designer.UndoImage, TableSize(session));
    DropUndo(session);
    if (!fits) return;
    RenewBars(session, 0);
    session->form.SelectedItem = GroupRow(session);
    RepaintCanvas(session);
}

} // namespace tessarine
