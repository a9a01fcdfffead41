#include "designer/properties.h"

#include <algorithm>
#include <iterator>

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/enabling.h"
#include "designer/field_edit.h"
#include "designer/host_words.h"
#include "designer/item_table.h"
#include "designer/section_edit.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/host_data.h"
#include "frame/owned.h"
#include "frame/session_table.h"

namespace tessarine {

namespace {

enum { PAGES_OF_PICTURE = 1, PAGES_OF_LINE = 259, PAGES_OF_LABEL = 41027 };

void EditByHost(Session *session, uint32_t pages) {
    const int changed = AskHostForProperties(session, pages);
    if (session->State == STATE_ENDING) return;
    RepaintCanvas(session);
    if (changed) SetModified(session, 1);
}

void EditPictureItem(Session *session) { EditByHost(session, PAGES_OF_PICTURE); }

struct KindRow {
    int type;
    void (*edit)(Session *session);
};

constexpr KindRow kinds[] = {{ITEM_LABEL, EditLabelItem},
                             {ITEM_LINE, EditLineItem},
                             {ITEM_PICTURE, EditPictureItem},
                             {ITEM_FIELD, EditSelectedField},
                             {ITEM_BAR, EditSection}};

void ReleaseMenu(HMENU menu) { DestroyMenu(menu); }
using OwnedMenu = Owned<HMENU, ReleaseMenu>;

// A picture, in a field too, has no font, and nothing that the menu names is the group's.
bool HasMenu(const Session *session) {
    return TextSelected(session) ? !GroupSelected(session)
                                 : LineSelected(session) || BarSelected(session);
}

} // namespace

int AskHostForProperties(Session *session, uint32_t pages) {
    if (!host_data.ItemPropertiesCallback) return 0;
    int changed = 0;
    {
        const OwnFloatState own; // the routine may leave the floating point units as it likes
        changed =
            host_data.ItemPropertiesCallback(session, pages, MayEdit(), host_data.HostContext);
    }
    RaisePending(session);
    return changed;
}

void EditLabelItem(Session *session) { EditByHost(session, PAGES_OF_LABEL); }
void EditLineItem(Session *session) { EditByHost(session, PAGES_OF_LINE); }

void ItemProperties(Session *session) {
    const ItemRecord *item = Selected(session);
    if (!item || DesignerOf(session).PendingCommand != IDLE) return;
    const auto *const kind = std::ranges::find(kinds, item->ItemType, &KindRow::type);
    if (kind != std::end(kinds)) kind->edit(session);
}

void ShowItemMenu(Session *session, POINT pixel) {
    if (!HasMenu(session)) return;
    const OwnedMenu menu(LoadMenuA(module_instance, MAKEINTRESOURCEA(ITEM_MENU)));
    if (!menu) return;
    if (!TextSelected(session)) EnableMenuItem(menu.Get(), COMMAND_FONTS, MF_BYCOMMAND | MF_GRAYED);
    ClientToScreen(session->Window, &pixel);
    TrackPopupMenu(GetSubMenu(menu.Get(), 0), 0, pixel.x, pixel.y, 0, session->ParentWindow,
                   nullptr);
    RaisePending(session);
}

} // namespace tessarine
