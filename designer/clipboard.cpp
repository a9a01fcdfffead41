#include "designer/clipboard.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/delete_item.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/place_rect.h"
#include "designer/placement.h"
#include "designer/selection.h"
#include "designer/tracking.h"
#include "expr/validate.h"
#include "form/field_table.h"
#include "form/modified.h"
#include "frame/memory.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr char MARKER[] = "Tessarine Plus data";
constexpr size_t MARKER_SIZE = 100;
constexpr const char *TABLE_FULL = "Item Table Full!";

int16_t Short(int units) {
    return static_cast<int16_t>(std::clamp<int>(units, std::numeric_limits<int16_t>::min(),
                                                std::numeric_limits<int16_t>::max()));
}

bool Tell(const Session *session, const char *text) {
    ShowSessionBox(session, text);
    return false;
}

bool AddClipField(Session *session, int field, FieldRecord **copy) {
    *copy = static_cast<FieldRecord *>(MemAlloc(sizeof(FieldRecord)));
    if (!*copy) return Tell(session, "Ran Out of Memory(AddClipField a)");
    const FieldRecord &source = session->form.Fields[field];
    **copy = source;
    // The shared rows of the expression are held, so that the copy outlives its field.
    return source.FieldKind != FIELD_CALC ||
           CopyCreateExp(session, source.FieldTokens, (*copy)->FieldTokens);
}

// False after a message. What doesn't fit the store is passed over.
bool AddClipItem(Session *session, int row, int left, int top) {
    Designer &designer = DesignerOf(session);
    if (designer.ClipCount == MAX_CLIP_ITEMS) return true;
    const int place = designer.ClipCount++;
    auto *copy = static_cast<ItemRecord *>(MemAlloc(sizeof(ItemRecord)));
    designer.ClipItems[place] = copy;
    if (!copy) return Tell(session, "Ran Out of Memory(AddClipItem)");
    *copy = session->form.Items[row];
    copy->x = Short(copy->x - left);
    copy->y = Short(copy->y - top);
    return copy->ItemType != ITEM_FIELD ||
           AddClipField(session, copy->FieldIndex, &designer.ClipFields[place]);
}

bool CopyItem(Session *session, int row) {
    Designer &designer = DesignerOf(session);
    const ItemRecord &item = session->form.Items[row];
    designer.ClipWidth = item.width;
    designer.ClipHeight = item.height;
    return AddClipItem(session, row, item.x, item.y);
}

// The block around the marked rows. One that lies above the first moves the left edge and leaves
// the top: the oddity stays, since what was copied is laid out by it.
RECT BlockOfMarked(const Session *session) {
    RECT block{};
    bool first = true;
    for (int row = 0; row < session->form.TotalItems; ++row) {
        const ItemRecord &item = session->form.Items[row];
        if (!item.GroupMark || item.ItemType == ITEM_BAR) continue;
        const RECT place = RectOf(item);
        if (first) block = place;
        first = false;
        block.left = std::min(block.left, place.left);
        if (place.top < block.top) block.left = place.top;
        block.right = std::max(block.right, place.right);
        block.bottom = std::max(block.bottom, place.bottom);
    }
    return block;
}

bool CopyGroup(Session *session) {
    MarkGroup(session);
    const RECT block = BlockOfMarked(session);
    bool whole = true;
    for (int row = TakeMarked(session); row != NO_ROW; row = TakeMarked(session))
        if (whole) whole = AddClipItem(session, row, block.left, block.top);
    Designer &designer = DesignerOf(session);
    designer.ClipWidth = block.right - block.left;
    designer.ClipHeight = block.bottom - block.top;
    return whole;
}

// Says to all that this window's store holds something; it is never read. Null without memory.
HGLOBAL MakeMarker() {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, MARKER_SIZE);
    void *memory = block ? GlobalLock(block) : nullptr;
    if (memory) {
        std::memcpy(memory, MARKER, sizeof MARKER);
        GlobalUnlock(block);
        return block;
    }
    if (block) GlobalFree(block);
    return nullptr;
}

// The clipboard is open before and closed after, but for a lack of memory.
void PutMarker(Session *session) {
    if (DesignerOf(session).ClipCount > 0) {
        const HGLOBAL marker = MakeMarker();
        if (!marker) return;
        EmptyClipboard();
        if (!SetClipboardData(session->device.ClipFormat, marker)) GlobalFree(marker);
    }
    CloseClipboard();
}

// At the session's end the rows go all together, and the host hears of no change any more.
void FreeClipField(Session *session, FieldRecord *field) {
    const bool holds = field && field->FieldKind == FIELD_CALC;
    if (holds && session->State != STATE_ENDING) ReleaseSymbols(session, field->FieldTokens);
    MemFree(field);
}

// A font row that was given up meanwhile, or is a picture by now, can't show a text.
void SettleFont(const Session *session, ItemRecord *item) {
    if (item->ItemType != ITEM_LABEL && item->ItemType != ITEM_FIELD) return;
    const FontEntry &font = session->form.Fonts[item->FontIndex];
    if (!font.InUse || font.IsPicture) item->FontIndex = 0;
}

// A row of the field table for a pasted field. False after a message: then nothing was taken.
bool PasteField(Session *session, const FieldRecord &copy, int row) {
    const int slot = NewFieldSlot(session);
    if (slot == NO_SLOT) return Tell(session, "Ran out of field table!");
    FieldRecord *field = &session->form.Fields[slot];
    *field = copy;
    if (copy.FieldKind == FIELD_CALC &&
        !CopyCreateExp(session, copy.FieldTokens, field->FieldTokens)) {
        if (session->State != STATE_ENDING) ReleaseField(session, slot);
        return false;
    }
    session->form.Items[row].ItemType = ITEM_FIELD;
    session->form.Items[row].FieldIndex = static_cast<int16_t>(slot);
    return true;
}

// The row of the item, moved by the block's corner and held in its section.
int PasteItem(Session *session, ItemRecord item, POINT corner) {
    RECT &place = DesignerOf(session).FocusRect;
    place = RectOf(item);
    OffsetRect(&place, corner.x, corner.y);
    item.SectionIndex = static_cast<int16_t>(PlaceRect(session));
    SetPlace(&item, place);
    SettleFont(session, &item);
    return InsertItem(session, item);
}

// False when nothing more can be pasted. A field that gets no row becomes a label.
bool PasteRow(Session *session, int number, POINT corner, int *row) {
    const Designer &designer = DesignerOf(session);
    const ItemRecord *copy = designer.ClipItems[number];
    if (!copy) return true; // there was no memory for it
    if (session->form.TotalItems >= MAX_ITEMS) return Tell(session, TABLE_FULL);
    *row = PasteItem(session, *copy, corner);
    ItemRecord *item = &session->form.Items[*row];
    if (item->ItemType != ITEM_FIELD) return true;
    item->ItemType = ITEM_LABEL; // until it has a field of its own
    const FieldRecord *field = designer.ClipFields[number];
    return !field || PasteField(session, *field, *row);
}

int FieldsAmong(const FormState &form, int rows) {
    return static_cast<int>(
        std::count_if(form.Items, form.Items + std::min<int>(rows, form.TotalItems),
                      [](const ItemRecord &item) { return item.ItemType == ITEM_FIELD; }));
}

int FieldsInUse(const FormState &form) {
    return static_cast<int>(
        std::count_if(form.Fields, form.Fields + form.FieldCount,
                      [](const FieldRecord &field) { return field.InUse != 0; }));
}

// What the form's own first rows hold is taken for what the store holds: the shortage then shows
// when the items are placed.
bool FieldsFit(const Session *session, int rows) {
    const FormState &form = session->form;
    return FieldsInUse(form) + FieldsAmong(form, rows) <= MAX_FIELDS;
}

} // namespace

void CopyItems(Session *session, int cut) {
    if (!OpenClipboard(session->Window)) {
        ShowSessionBox(session, "Clipboard in use by another application", "Not Available");
        return;
    }
    ClearClip(session);
    if (session->State == STATE_ENDING) return;
    const ItemRecord *item = Selected(session);
    // Only a host's command comes here, and the clipboard stays open for its next.
    if (!item || item->ItemType == ITEM_BAR) return;
    const bool whole = item->ItemType == ITEM_GROUP ? CopyGroup(session)
                                                    : CopyItem(session, session->form.SelectedItem);
    PutMarker(session);
    if (session->State == STATE_ENDING) return;
    if (cut && whole) {
        DeleteItem(session);
        return;
    }
    HideFocus(session);
    session->form.SelectedItem = NOTHING_SELECTED;
    RepaintCanvas(session);
}

// From the end, and looking anew each time: a host that is told of the change may close the
// session.
void ClearClip(Session *session) {
    while (session->designer && session->designer->ClipCount > 0) {
        Designer &designer = *session->designer;
        const int row = --designer.ClipCount;
        MemFree(std::exchange(designer.ClipItems[row], nullptr));
        FreeClipField(session, std::exchange(designer.ClipFields[row], nullptr));
    }
}

void BeginPaste(Session *session) {
    const Designer &designer = DesignerOf(session);
    if (designer.ClipCount < 1 || designer.PendingCommand != IDLE) return;
    const char *full = session->form.TotalItems + designer.ClipCount > MAX_ITEMS ? TABLE_FULL
                       : !FieldsFit(session, designer.ClipCount) ? "Field Table Full!"
                                                                 : nullptr;
    if (full) {
        ShowSessionBox(session, full);
        return;
    }
    if (Selected(session)) Deselect(session);
    if (session->State == STATE_ENDING) return;
    BeginPlacement(session, COMMAND_PASTE, designer.ClipHeight, designer.ClipWidth);
}

void PlacePaste(Session *session) {
    Designer &designer = DesignerOf(session);
    HideFocus(session);
    const POINT corner{designer.FocusRect.left, designer.FocusRect.top};
    const int rows = designer.ClipCount;
    int row = NOTHING_SELECTED;
    for (int number = 0; number < designer.ClipCount; ++number)
        if (!PasteRow(session, number, corner, &row)) break;
    if (session->State == STATE_ENDING) return;
    EndGesture(session);
    session->form.SelectedItem = rows == 1 ? row : NOTHING_SELECTED;
    designer.PaintMode = PAINT_RULERS;
    RepaintCanvas(session);
    SetModified(session, 1);
}

} // namespace tessarine
