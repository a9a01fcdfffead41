#include "designer/item_style.h"

#include "designer/canvas_paint.h"
#include "designer/dialogs/item_dialogs.h"
#include "designer/enabling.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "form/modified.h"
#include "frame/dialogs.h"

namespace tessarine {

namespace {

constexpr uint16_t POSITION_FLAGS =
    FLAG_LEFT | FLAG_RIGHT | FLAG_CENTER | FLAG_TOP | FLAG_MIDDLE | FLAG_BOTTOM;

struct Edit {
    const char *dialog;
    DLGPROC procedure;
    bool (*takes)(const Session *session); // by what is selected
    // What the dialog sets, from the group to a member.
    void (*copy)(const ItemRecord &group, ItemRecord *member);
};

void CopyFlags(const ItemRecord &group, uint16_t flags, ItemRecord *member) {
    member->ItemFlags =
        static_cast<uint16_t>((member->ItemFlags & ~flags) | (group.ItemFlags & flags));
}

void CopyPosition(const ItemRecord &group, ItemRecord *member) {
    CopyFlags(group, POSITION_FLAGS, member);
}

void CopyOutline(const ItemRecord &group, ItemRecord *member) {
    member->OutlineSides = group.OutlineSides;
    member->OutlineStyle = group.OutlineStyle;
    member->OutlineWidth = group.OutlineWidth;
    member->OutlineColor = group.OutlineColor;
}

void CopyBackground(const ItemRecord &group, ItemRecord *member) {
    if (member->ItemType == ITEM_PICTURE) return;
    CopyFlags(group, FLAG_BACKGROUND, member);
    member->Background = group.Background;
}

constexpr Edit position{"PosParam", PosParam, TextSelected, CopyPosition};
constexpr Edit outline{"OutlineParam", OutlineParam, SomethingSelected, CopyOutline};
constexpr Edit background{"BackgroundParam", BackgroundParam, NoPictureSelected, CopyBackground};

void ShareWithMembers(Session *session, const Edit &edit, const ItemRecord &group) {
    MarkGroup(session);
    for (int row = TakeMarked(session); row != NO_ROW; row = TakeMarked(session))
        edit.copy(group, &session->form.Items[row]);
}

void EditStyle(Session *session, const Edit &edit) {
    if (!edit.takes(session)) return;
    if (RunDialog(session, edit.dialog, edit.procedure, 0) != DIALOG_OK) return;
    if (session->State == STATE_ENDING) return;
    const ItemRecord *item = Selected(session);
    if (item && item->ItemType == ITEM_GROUP) ShareWithMembers(session, edit, *item);
    RepaintCanvas(session);
    SetModified(session, 1);
}

} // namespace

void EditPosition(Session *session) { EditStyle(session, position); }
void EditOutline(Session *session) { EditStyle(session, outline); }
void EditBackground(Session *session) { EditStyle(session, background); }

} // namespace tessarine
