#include "form/font_table.h"

#include <algorithm>

#include "form/fonts.h"
#include "frame/memory.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr int BOLD_WEIGHT = 700;
constexpr int NO_ROW = -1;

void FreeBlock(HGLOBAL *block) {
    if (*block) FreeHandle(*block);
    *block = nullptr;
}

// Row 0, the default font, is never given out.
int FreeRow(Session *session) {
    FormState &form = session->form;
    form.FontCount = std::max(form.FontCount, 1);
    for (int row = 1; row < form.FontCount; ++row) {
        if (form.Fonts[row].InUse) continue;
        ReleaseFontRow(session, row);
        return row;
    }
    if (form.FontCount >= MAX_FONTS) return NO_ROW;
    ReleaseFontRow(session, form.FontCount); // a form that stood before may have left it
    return form.FontCount++;
}

// The first font row that is equal, counting from 0; a picture stands for itself.
int FirstEqualRow(const Session *session, int row) {
    const FontEntry *fonts = session->form.Fonts;
    if (fonts[row].IsPicture) return row;
    int equal = 0;
    while (fonts[equal].IsPicture || !SameFont(fonts[equal].LogFont, fonts[row].LogFont)) ++equal;
    return equal;
}

// Makes items with equal fonts share a row and releases what no label or field names. Picture
// rows are not looked at by any item here, so a squeeze releases every picture of the form.
bool SqueezeTable(Session *session) {
    FormState &form = session->form;
    int map[MAX_FONTS] = {};
    bool used[MAX_FONTS] = {};
    for (int row = 1; row < MAX_FONTS; ++row) map[row] = FirstEqualRow(session, row);
    for (int row = 0; row < form.TotalItems; ++row) {
        ItemRecord *item = &form.Items[row];
        if (item->ItemType != ITEM_LABEL && item->ItemType != ITEM_FIELD) continue;
        item->FontIndex = static_cast<int16_t>(map[item->FontIndex]);
        used[item->FontIndex] = true;
    }
    bool released = false;
    for (int row = 1; row < MAX_FONTS; ++row) {
        if (!form.Fonts[row].InUse || (map[row] == row && used[row])) continue;
        ReleaseFontRow(session, row);
        released = true;
    }
    return released;
}

} // namespace

void ReleaseFontRow(Session *session, int number) {
    FontEntry *row = &session->form.Fonts[number];
    if (row->Font) DeleteObject(row->Font);
    if (row->Bitmap) DeleteObject(row->Bitmap);
    FreeBlock(&row->BitsBlock);
    FreeBlock(&row->InfoBlock);
    ClearFontRow(session, number);
}

int FindFontRow(Session *session) {
    for (;;) {
        const int row = FreeRow(session);
        if (row != NO_ROW) return row;
        if (!SqueezeTable(session)) break;
    }
    ShowSessionBox(session, "Ran Out of Font/Picture Table");
    return NO_ROW;
}

int CreateDefaultBoldFont(Session *session) {
    const int row = FindFontRow(session);
    if (row == NO_ROW) {
        ShowSessionBox(session, "Ran out of Font Table");
        return 0;
    }
    FontEntry *font = &session->form.Fonts[row];
    font->LogFont = session->form.Fonts[0].LogFont;
    font->LogFont.lfWeight = BOLD_WEIGHT;
    if (MakeFont(session, session->drawing.ScreenDC, row, false)) return row;
    ShowSessionBox(session, "Unable to create default bold font.");
    ReleaseFontRow(session, row);
    return 0;
}

} // namespace tessarine
