#include "designer/new_items.h"

#include <string>

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/focus_rect.h"
#include "designer/host_items.h"
#include "designer/item_table.h"
#include "designer/placement.h"
#include "form/label_measure.h"
#include "form/modified.h"
#include "frame/text.h"

namespace tessarine {

namespace {

constexpr int TEXT_INSET = 20; // of a label's text, both sides together
constexpr const char *CALC_PREFIX = "CALC->";

// True when the label goes into its section, which grows when it is too low.
bool MakeRoom(Session *session, int section, int x, int y, SIZE size) {
    const RECT bar = RectOf(*BarOf(session, section));
    if (!FitsRecord(x) || !FitsRecord(y) || !FitsRecord(y + size.cy)) return false;
    if (x + size.cx > bar.right) return false;
    return y + size.cy <= bar.bottom || GrowSection(session, section, y, 2 * size.cy);
}

bool LiesInside(const RECT &inner, const RECT &outer) {
    return inner.left <= inner.right && inner.top <= inner.bottom && inner.left >= outer.left &&
           inner.right <= outer.right && inner.top >= outer.top && inner.bottom <= outer.bottom;
}

// The text may be any that the host knows, the scratch text and the name itself among them.
void RenameCalculation(Session *session, FieldRecord *field, char *text) {
    UpperText(text);
    if (!HasPrefix(text, CALC_PREFIX)) {
        const std::string name = CALC_PREFIX + std::string(text).substr(0, MAX_LABEL_TEXT);
        CopyText(name.c_str(), session->TextBuffer, sizeof session->TextBuffer);
        CopyText(name.c_str(), text, name.size() + 1);
    }
    if (text != field->FieldName) CopyText(text, field->FieldName, sizeof field->FieldName);
}

void ChangeLabel(Session *session, const char *text) {
    char cut[MAX_LABEL_TEXT + 1];
    CopyText(text, cut, sizeof cut);
    ItemRecord *label = Selected(session);
    if (!lstrcmpA(cut, label->LabelText)) return;
    CopyText(cut, label->LabelText, sizeof label->LabelText);
    AutoSizeLabel(session, session->form.SelectedItem);
    HideFocus(session);
    RepaintCanvas(session);
    SetModified(session, 1);
}

} // namespace

SIZE LabelSize(const FontEntry &font, const char *text) {
    return {GetLabelLen(font, text) + TEXT_INSET, GetLabelHeight(font, text)};
}

void AutoSizeLabel(Session *session, int row) {
    ItemRecord *label = &session->form.Items[row];
    if (label->ItemType != ITEM_LABEL || !*label->LabelText || label->KeepSize) return;
    const SIZE size = LabelSize(session->form.Fonts[label->FontIndex], label->LabelText);
    const RECT place{label->x, label->y, label->x + size.cx, label->y + size.cy};
    if (FitsRecord(place)) SetPlace(label, place);
}

int AddNewLabelItem(Session *session, const char *text, int section, int x, int y, int font) {
    if (font < 0 || font >= MAX_FONTS || !MayAddTo(session, section)) return NO_ROW;
    SelectBar(session, section);
    char cut[MAX_LABEL_TEXT + 1];
    CopyText(text, cut, sizeof cut);
    const SIZE size = LabelSize(session->form.Fonts[font], cut);
    if (!MakeRoom(session, section, x, y, size)) return NO_ROW;
    NewItemRect(session, size.cy, size.cx, &DesignerOf(session).FocusRect, x, y, true);
    ItemRecord label = ItemInSection(session, ITEM_LABEL, section);
    CopyText(cut, label.LabelText, sizeof label.LabelText);
    return AddItem(session, label);
}

int AddNewLineItem(Session *session, int section, int angle, const RECT &rectangle, int width) {
    if (!FitsRecord(angle) || !FitsRecord(width) || !MayAddTo(session, section)) return NO_ROW;
    SelectBar(session, section);
    if (!LiesInside(rectangle, RectOf(*BarOf(session, section)))) return NO_ROW;
    DesignerOf(session).FocusRect = rectangle;
    ItemRecord line = ItemInSection(session, ITEM_LINE, section);
    line.LineAngle = static_cast<int16_t>(angle);
    line.LineWidth = static_cast<int16_t>(width);
    return AddItem(session, line);
}

int UpdateLabelText(Session *session, char *text) {
    const ItemRecord *item = Selected(session);
    if (item && item->ItemType == ITEM_LABEL) ChangeLabel(session, text);
    if (item && item->ItemType == ITEM_FIELD) {
        FieldRecord *field = &session->form.Fields[item->FieldIndex];
        if (field->FieldKind == FIELD_CALC) RenameCalculation(session, field, text);
    }
    return 1;
}

} // namespace tessarine
