#include "form/font_table.h"

#include <algorithm>

#include "form/field_sample.h"
#include "form/fonts.h"
#include "form/label_measure.h"
#include "form/modified.h"
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
        ClearFontRow(session, row);
        return row;
    }
    if (form.FontCount >= MAX_FONTS) return NO_ROW;
    ClearFontRow(session, form.FontCount);
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

int RowOfFont(const Session *session, const LOGFONTA &font) {
    for (int row = 0; row < session->form.FontCount; ++row) {
        const FontEntry &entry = session->form.Fonts[row];
        if (entry.InUse && !entry.IsPicture && SameFont(entry.LogFont, font)) return row;
    }
    return NO_ROW;
}

// A row that holds the font: one that has it already, or a new one. -1 after a message.
int TakeFontRow(Session *session, const LOGFONTA &font) {
    int row = RowOfFont(session, font);
    if (row != NO_ROW) return row;
    row = FindFontRow(session);
    if (row == NO_ROW) {
        ShowSessionBox(session, "Ran out of Font Table");
        return NO_ROW;
    }
    session->form.Fonts[row].LogFont = font;
    if (MakeFont(session, session->drawing.ScreenDC, row, false)) return row;
    ReleaseFontRow(session, row);
    return NO_ROW;
}

bool ChooseFontOf(Session *session, ItemRecord *item, LOGFONTA *font) {
    *font = session->form.Fonts[item->FontIndex].LogFont;
    font->lfHeight = MulDiv(font->lfHeight, session->drawing.LogPixelsY, UNITS_PER_INCH);
    font->lfWidth = MulDiv(font->lfWidth, session->drawing.LogPixelsX, UNITS_PER_INCH);
    CHOOSEFONTA choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = session->Window;
    choice.hDC = session->printer.InfoDevice;
    choice.lpLogFont = font;
    choice.rgbColors = item->TextColor;
    choice.Flags = CF_BOTH | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
    if (!ChooseFontA(&choice)) return false;
    item->TextColor = choice.rgbColors;
    font->lfHeight = -(choice.iPointSize * UNITS_PER_INCH / 720);
    if (session->drawing.LogPixelsX)
        font->lfWidth = MulDiv(font->lfWidth, UNITS_PER_INCH, session->drawing.LogPixelsX);
    return true;
}

void RefreshItem(Session *session, ItemRecord *item) {
    if (item->ItemType == ITEM_FIELD) {
        CreateFieldLabel(session, item->FieldIndex, item->LabelText, item->width, item->FontIndex);
    } else if (item->ItemType == ITEM_LABEL && !item->KeepSize) {
        const FontEntry &font = session->form.Fonts[item->FontIndex];
        item->width = static_cast<int16_t>(GetLabelLen(font, item->LabelText) + 20);
        item->height = static_cast<int16_t>(GetLabelHeight(font, item->LabelText));
    }
}

void SetItemFont(Session *session, ItemRecord *item, int row, uint32_t color) {
    item->FontIndex = static_cast<int16_t>(row);
    item->TextColor = color;
    RefreshItem(session, item);
}

void SetGroupFont(Session *session, int row, uint32_t color) {
    for (int number = 0; number < session->form.TotalItems; ++number) {
        ItemRecord *item = &session->form.Items[number];
        if (!item->GroupMark) continue;
        item->GroupMark = 0;
        if (item->ItemType == ITEM_LABEL || item->ItemType == ITEM_FIELD)
            SetItemFont(session, item, row, color);
    }
}

bool TakesFont(const Session *session, const ItemRecord &item) {
    if (item.ItemType == ITEM_FIELD)
        return session->form.Fields[item.FieldIndex].ValueType != TYPE_PICTURE;
    return item.ItemType == ITEM_LABEL || item.ItemType == ITEM_GROUP;
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

int FrFonts(Session *session, const LOGFONTA *font) {
    const int selected = session->form.SelectedItem;
    if (selected < 0 || selected >= session->form.TotalItems) return 1;
    ItemRecord *item = &session->form.Items[selected];
    if (!TakesFont(session, *item)) return 1;
    LOGFONTA wanted;
    PortableFont stored;
    if (font)
        wanted = *font;
    else if (!ChooseFontOf(session, item, &wanted))
        return 0;
    wanted.lfFaceName[LF_FACESIZE - 1] = 0;
    if (!WritePortableFont(wanted, &stored)) return 0; // no save could hold it
    const int row = TakeFontRow(session, wanted);
    if (row == NO_ROW) return 0;
    SetItemFont(session, item, row, item->TextColor);
    if (item->ItemType == ITEM_GROUP) SetGroupFont(session, row, item->TextColor);
    SetModified(session, 1);
    return 1;
}

} // namespace tessarine
