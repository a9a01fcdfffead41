#include "designer/item_font.h"

#include "designer/canvas_paint.h"
#include "designer/enabling.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/new_items.h"
#include "form/field_sample.h"
#include "form/font_table.h"
#include "form/fonts.h"
#include "form/modified.h"
#include "frame/fatal_error.h"
#include "frame/message_box.h"

namespace tessarine {

namespace {

constexpr int TENTHS_PER_INCH = 720; // tenths of a point

int RowOfFont(const Session *session, const LOGFONTA &font) {
    for (int row = 0; row < session->form.FontCount; ++row) {
        const FontEntry &entry = session->form.Fonts[row];
        if (entry.InUse && !entry.IsPicture && SameFont(entry.LogFont, font)) return row;
    }
    return NO_ROW;
}

// A row that holds the font: one that has it already, or a new one. NO_ROW after a message, or when
// the font can't be made.
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

// The dialog works in pixels of the screen.
LOGFONTA OnScreen(const Session *session, LOGFONTA font) {
    font.lfHeight = MulDiv(font.lfHeight, session->drawing.LogPixelsY, UNITS_PER_INCH);
    font.lfWidth = MulDiv(font.lfWidth, session->drawing.LogPixelsX, UNITS_PER_INCH);
    return font;
}

// The colour goes to the item at once.
bool ChooseFontOf(Session *session, const ItemRecord &of, LOGFONTA *font) {
    *font = OnScreen(session, session->form.Fonts[of.FontIndex].LogFont);
    CHOOSEFONTA choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = session->Window;
    choice.hDC = session->printer.InfoDevice;
    choice.lpLogFont = font;
    choice.rgbColors = of.TextColor;
    choice.Flags = CF_BOTH | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
    const bool chosen = ChooseFontA(&choice);
    RaisePending(session);
    ItemRecord *item = Selected(session); // under the dialog the host may have selected another
    if (!chosen || session->State == STATE_ENDING || !item) return false;
    item->TextColor = choice.rgbColors;
    font->lfHeight = -(choice.iPointSize * UNITS_PER_INCH / TENTHS_PER_INCH);
    if (session->drawing.LogPixelsX)
        font->lfWidth = MulDiv(font->lfWidth, UNITS_PER_INCH, session->drawing.LogPixelsX);
    return true;
}

void SetItemFont(Session *session, int number, int row, uint32_t color) {
    ItemRecord *item = &session->form.Items[number];
    item->FontIndex = static_cast<int16_t>(row);
    item->TextColor = color;
    AutoSizeLabel(session, number);
    if (item->ItemType == ITEM_FIELD)
        CreateFieldLabel(session, item->FieldIndex, item->LabelText, item->width, row);
}

void SetGroupFont(Session *session, int row, uint32_t color) {
    MarkGroup(session);
    for (int number = TakeMarked(session); number != NO_ROW; number = TakeMarked(session)) {
        const int type = session->form.Items[number].ItemType;
        if (type == ITEM_LABEL || type == ITEM_FIELD) SetItemFont(session, number, row, color);
    }
}

int SetSelectedFont(Session *session, const LOGFONTA &font) {
    const int row = TakeFontRow(session, font);
    const ItemRecord *item = Selected(session); // as it is behind a box
    if (row == NO_ROW || session->State == STATE_ENDING || !TextSelected(session)) return 0;
    const uint32_t color = item->TextColor;
    SetItemFont(session, session->form.SelectedItem, row, color);
    if (item->ItemType == ITEM_GROUP) SetGroupFont(session, row, color);
    RepaintCanvas(session);
    SetModified(session, 1);
    return 1;
}

} // namespace

int FrFonts(Session *session, const LOGFONTA *font) {
    const ItemRecord *item = Selected(session);
    if (!TextSelected(session)) return 1;
    LOGFONTA wanted;
    if (font)
        wanted = *font;
    else if (!ChooseFontOf(session, *item, &wanted))
        return 0;
    wanted.lfFaceName[LF_FACESIZE - 1] = 0;
    PortableFont stored;
    if (!WritePortableFont(wanted, &stored)) return 0; // no save could hold it
    return SetSelectedFont(session, wanted);
}

} // namespace tessarine
