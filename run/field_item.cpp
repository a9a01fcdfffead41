#include "run/field_item.h"

#include <algorithm>
#include <cstring>

#include "form/label_measure.h"
#include "format/format_field.h"
#include "format/postnet.h"
#include "frame/fatal_error.h"
#include "frame/float_state.h"
#include "frame/text.h"
#include "paint/text_measure.h"
#include "paint/text_place.h"
#include "run/items.h"
#include "run/wrapped_text.h"

namespace tessarine {

namespace {

constexpr size_t TEXT_SIZE = 301;
constexpr int POSTNET_LIMIT = 300;

// A field's text on its way to the page.
struct FieldText {
    FieldText() = default;
    FieldText(const FieldText &) = delete;
    FieldText &operator=(const FieldText &) = delete;

    char text[TEXT_SIZE] = "";
    const char *shown = text; // or a text field's own value, which has no limit here
    int font = 0;
    int extra = 0;         // room kept on the right for the longer suffix
    int percent_width = 0; // room kept on the right for a percent sign painted apart
    bool percent_apart = false;
};

int Length(const char *text) { return static_cast<int>(std::strlen(text)); }

void PaintHostPicture(const Session *session, HDC device, const ItemRecord &item,
                      const FieldRecord &field) {
    if (!session->RunBlock.PictureProc) return;
    const RECT place = ItemRectangle(session, item);
    const int32_t rectangle[4] = {place.left, place.top, place.right, place.bottom};
    {
        const OwnFloatState own; // the routine may leave the floating point units as it likes
        session->RunBlock.PictureProc(device, field.LongValue, field.HostTable, field.HostField,
                                      rectangle, session->SessionId);
    }
    RaisePending(session);
}

void Append(FieldText *out, const char *text) {
    const size_t length = std::strlen(out->text);
    CopyText(text, out->text + length, sizeof out->text - length);
}

// Right-aligned digits keep their column whether the sign shows or not.
void PlacePercent(const Session *session, const ItemRecord &item, const FieldRecord &field,
                  FieldText *out) {
    if (field.SymbolKind != SYMBOL_PERCENT) return;
    const bool shows = SymbolShows(session, &field);
    if (item.ItemFlags & FLAG_RIGHT) {
        out->percent_width = GetLabelLen(session->form.Fonts[item.FontIndex], "%");
        out->percent_apart = shows;
    } else if (shows) {
        Append(out, "%");
    }
}

// The sign is read off the whole-number side for doubles too, where it counts as positive.
void ReserveSuffix(const FontEntry &font, const FieldRecord &field, FieldText *out) {
    const int negative = GetLabelLen(font, field.NegativeSuffix);
    const int positive = GetLabelLen(font, field.PositiveSuffix);
    out->extra = std::max(negative, positive) - (field.LongValue >= 0 ? positive : negative);
}

bool BeginsDigits(const FieldRecord &field, char c) {
    return IsDigit(c) || c == field.DecimalChar[0] || c == field.ThousandsChar[0];
}

void Fill(const FontEntry &font, const ItemRecord &item, const FieldRecord &field, FieldText *out) {
    const int pad_width = GetLabelLen(font, field.PadChar);
    if (!*field.PadChar || pad_width < 1) return;
    const int room = item.width - out->extra - out->percent_width - TEXT_INSET;
    const int length = Length(out->text);
    int count = (room - GetLabelLen(font, out->text)) / pad_width;
    count = std::min(count, static_cast<int>(TEXT_SIZE) - 1 - length);
    if (count <= 0) return;
    char *digits = out->text;
    while (*digits && !BeginsDigits(field, *digits)) ++digits;
    std::memmove(digits + count, digits, std::strlen(digits) + 1);
    std::memset(digits, field.PadChar[0], static_cast<size_t>(count));
}

void MakeText(Session *session, ItemRecord *item, FieldRecord *field, FieldText *out) {
    const FontEntry &font = session->form.Fonts[item->FontIndex];
    FormatField(session, field, item->LabelText);
    out->font = item->FontIndex;
    if (field->ValueType == TYPE_TEXT) {
        TruncateText(font, field->TextValue, item->width - TEXT_INSET);
        if (field->TextValue) out->shown = field->TextValue;
        return;
    }
    CopyText(item->LabelText, out->text, sizeof out->text);
    if (field->ValueType != TYPE_NUMERIC && field->ValueType != TYPE_DOUBLE) return;
    PlacePercent(session, *item, *field, out);
    ReserveSuffix(font, *field, out);
    Fill(font, *item, *field, out);
}

// What isn't a zip code prints as it is, in the first font.
void MakeBarcode(FieldText *out) {
    if (out->shown != out->text) CopyText(out->shown, out->text, sizeof out->text);
    if (PostnetText(out->text, Length(out->text), POSTNET_LIMIT))
        out->shown = out->text;
    else
        out->font = 0;
}

// A field is measured by the printer's own text metrics, and drawn with the device's. The measure
// is that of the item's font, also where the text falls back to the first font. Text at the left
// needs its height alone.
SIZE Measure(Session *session, const ItemRecord &item, const FieldRecord &field, FieldText *out) {
    PrinterState &printer = session->printer;
    const MeasuredFont font{printer.InfoDevice, printer.InfoPixelsX,
                            session->form.Fonts[out->font].Font, &printer.Measures[out->font]};
    if (field.FieldFlags & FIELD_POSTNET) MakeBarcode(out);
    return TextExtent(font, out->shown, item.ItemFlags & FLAG_LEFT);
}

int PlaceAcross(const ItemRecord &item, const RECT &place, const FieldText &text, int width) {
    const int x = TextLeft(item, place, width);
    if (item.ItemFlags & FLAG_LEFT) return x;
    if (item.ItemFlags & FLAG_RIGHT) return x - text.percent_width;
    return std::max<int>(x, place.left + TEXT_INSET);
}

void Draw(const Session *session, HDC device, const ItemRecord &item, const FieldText &text,
          const SIZE &size) {
    const RECT place = ItemRectangle(session, item);
    const int x = PlaceAcross(item, place, text, size.cx + text.extra);
    const int y = TextTop(item, place, size.cy);
    SelectTextStyle(device, session->form.Fonts[text.font], item.TextColor);
    if (*text.shown)
        ExtTextOutA(device, x, y, ETO_CLIPPED, &place, text.shown,
                    static_cast<UINT>(Length(text.shown)), nullptr);
    if (text.percent_apart)
        ExtTextOutA(device, place.left + item.width - TEXT_INSET - text.percent_width, y,
                    ETO_CLIPPED, &place, "%", 1, nullptr);
}

} // namespace

void PrintField(Session *session, HDC device, int row) {
    ItemRecord *item = &session->form.Items[row];
    FieldRecord *field = &session->form.Fields[item->FieldIndex];
    if (field->ValueType == TYPE_PICTURE) {
        PaintHostPicture(session, device, *item, *field);
        return;
    }
    if (field->ValueType == TYPE_TEXT && (field->FieldFlags & (FIELD_WRAP | FIELD_WORD_WRAP))) {
        PrintWrappedField(session, device, row);
        return;
    }
    FieldText text;
    MakeText(session, item, field, &text);
    const SIZE size = Measure(session, *item, *field, &text);
    Draw(session, device, *item, text, size);
    RaiseRowBottom(session, *item);
}

} // namespace tessarine
